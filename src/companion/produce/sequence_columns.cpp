#include "companion/produce/sequence_columns.h"

#include <algorithm>
#include <utility>

namespace ORR::Companion {

void SequenceSpan::add(int participant)
{
    if (participant < 0)
        return;
    first = isEmpty() ? participant : std::min(first, participant);
    last = std::max(last, participant);
}

void SequenceSpan::add(const SequenceSpan &other)
{
    add(other.first);
    add(other.last);
}

SequenceSpan sequenceSpan(const SequenceStep &step)
{
    SequenceSpan span;
    switch (step.type) {
    case SequenceStep::Message:
    case SequenceStep::Reference:
    case SequenceStep::Note:
        span.add(step.from);
        span.add(step.to);
        break;
    case SequenceStep::Activate:
    case SequenceStep::Deactivate:
    case SequenceStep::Create:
    case SequenceStep::Destroy:
        span.add(step.to);
        break;
    default:
        break;
    }
    return span;
}

SequenceColumns::SequenceColumns(const Sequence &sequence)
    : participants(int(sequence.participants.size())),
      columns(sequence.participants.size() * SlotCount, -1), spans(sequence.steps.size())
{
    for (int i = 0; i < participants; ++i) {
        ask(i, Life);
        const int box = sequence.participants[i].box;
        if (box < 0)
            continue;
        if (i == 0 || sequence.participants[i - 1].box != box)
            ask(i, BoxLeft);
        if (i + 1 == participants || sequence.participants[i + 1].box != box)
            ask(i, BoxRight);
    }
    findSpans(sequence);
    for (qsizetype i = 0; i < sequence.steps.size(); ++i) {
        askFor(sequence.steps[i]);
        if (sequence.steps[i].type == SequenceStep::BeginFragment && !spans[i].isEmpty()) {
            ask(spans[i].first, FrameLeft);
            ask(spans[i].last, FrameRight);
        }
    }
    // The edges of the diagram stand beyond all.
    count = 1;
    for (int &column : columns) {
        if (column == 0)
            column = count++;
    }
    ++count;
}

int SequenceColumns::of(int participant, Slot slot) const
{
    if (participant == SequenceStep::leftOutside)
        return leftEdge();
    if (participant == SequenceStep::rightOutside)
        return rightEdge();
    return columns[participant * SlotCount + slot];
}

// Until they are counted, 0 is a column that is asked for.
void SequenceColumns::ask(int participant, Slot slot)
{
    columns[participant * SlotCount + slot] = 0;
}

void SequenceColumns::askFor(const SequenceStep &step)
{
    SequenceSpan span = sequenceSpan(step);
    if (step.type == SequenceStep::Divider)
        span = everybody();
    if (span.isEmpty())
        return;
    if (step.type == SequenceStep::Note && step.side != SequenceStep::Over) {
        ask(step.from, step.side == SequenceStep::Left ? NoteLeft : NoteRight);
        return;
    }
    if (step.type == SequenceStep::Reference) {
        ask(span.first, FrameLeft);
        ask(span.last, FrameRight);
    }
    const bool isText = step.type == SequenceStep::Note || step.type == SequenceStep::Reference
        || step.type == SequenceStep::Divider;
    // The text of an even number of participants stands between the two in the middle.
    if (isText && (span.last - span.first) % 2 == 1)
        ask((span.first + span.last) / 2, NoteRight);
}

// A fragment in which nobody does anything goes across all.
void SequenceColumns::findSpans(const Sequence &sequence)
{
    QList<qsizetype> open;
    for (qsizetype i = 0; i < sequence.steps.size(); ++i) {
        const SequenceStep &step = sequence.steps[i];
        if (step.type == SequenceStep::BeginFragment) {
            open.append(i);
        } else if (step.type == SequenceStep::EndFragment && !open.isEmpty()) {
            SequenceSpan &closed = spans[open.takeLast()];
            if (closed.isEmpty())
                closed = everybody();
            if (!open.isEmpty())
                spans[open.constLast()].add(closed);
        } else if (!open.isEmpty()) {
            spans[open.constLast()].add(step.type == SequenceStep::Divider ? everybody()
                                                                           : sequenceSpan(step));
        }
    }
}

} // namespace ORR::Companion
