// What of a sequence stands upon its lines and around them: boxes, notes, references, dividers,
// delays and fragments.
#include "companion/produce/sequence_writer.h"

#include <QColor>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr int boxRow = 1;
constexpr int boxTitleRow = 2;

constexpr QStringView noteFill = u"#FFF6D5";
constexpr QStringView dividerFill = u"#E1E6EC";

} // namespace

QString sequenceLetters(const QString &fill)
{
    return qGray(QColor(fill).rgb()) < 128 ? u"#FFFFFF"_s : u"#1E2A38"_s;
}

// A box is a frame without a tag around two spots; what it is called stands in its middle, as a tag
// would make room at its left.
void SequenceWriter::writeBoxes(int end)
{
    for (int box = 0; box < steps.boxes.size(); ++box) {
        SequenceSpan span;
        for (int i = 0; i < steps.participants.size(); ++i) {
            if (steps.participants[i].box == box)
                span.add(i);
        }
        if (span.isEmpty())
            continue;
        const SequenceBox &frame = steps.boxes[box];
        const QString fill = frame.fill.isEmpty() ? u"#F1F3F6"_s : frame.fill;
        const int left = columns.of(span.first, SequenceColumns::BoxLeft);
        graph.beginGroup(Attributes()
                             .text("uml", u"combinedfragment")
                             .number("row", boxRow)
                             .number("col", left)
                             .label(u"")
                             .text("color", u"none")
                             .text("fillcolor", u"none"));
        graph.beginGroup(Attributes()
                             .text("uml", u"section")
                             .number("row", boxRow)
                             .label(u"")
                             .text("color", u"#C3CBD5")
                             .text("fillcolor", fill));
        spacer(boxTitleRow, left, 16);
        spacer(end, columns.of(span.last, SequenceColumns::BoxRight), 30);
        if (!frame.title.isEmpty()) {
            graph.node(Attributes()
                           .text("uml", u"object")
                           .number("row", boxTitleRow)
                           .number("col", middle(span))
                           .label(wrapped(frame.title, sizes.name))
                           .text("color", u"none")
                           .text("fillcolor", u"none")
                           .text("fontcolor", sequenceLetters(fill)));
        }
        graph.endGroup();
        graph.endGroup();
    }
}

void SequenceWriter::writeNote(const SequenceStep &step)
{
    const SequenceSpan span = sequenceSpan(step);
    if (step.side == SequenceStep::Over && span.first != span.last) {
        writeBand(span, step);
        return;
    }
    const bool isOver = step.side == SequenceStep::Over;
    const SequenceColumns::Slot slot = isOver ? SequenceColumns::Life
        : step.side == SequenceStep::Left     ? SequenceColumns::NoteLeft
                                              : SequenceColumns::NoteRight;
    if (isOver)
        lines.interrupt(step.from, ++row);
    const QString fill = step.color.isEmpty() ? noteFill.toString() : step.color;
    const GraphText::Id note = graph.node(Attributes()
                                              .text("uml", u"object")
                                              .number("row", ++row)
                                              .number("col", columns.of(step.from, slot))
                                              .label(wrapped(step.text, sizes.note))
                                              .text("color", u"#C2A24A")
                                              .text("fillcolor", fill)
                                              .text("fontcolor", sequenceLetters(fill)));
    if (isOver) {
        lines.through(step.from, note, row);
        lines.resume(step.from, ++row);
    }
}

// A frame across the lines of several, which end above it and go on below.
void SequenceWriter::writeBand(const SequenceSpan &span, const SequenceStep &step)
{
    const bool isReference = step.type == SequenceStep::Reference;
    const bool isNote = step.type == SequenceStep::Note;
    const int top = row + (isReference ? 2 : 1);
    const int bottom = top + 2;
    for (int i = span.first; i <= span.last; ++i) {
        if (isAwaited[i] || lines.isEnded(i))
            continue;
        lines.interrupt(i, row + 1);
        lines.leaveOut(i, row + 1, bottom, false);
    }
    const int left =
        columns.of(span.first, isReference ? SequenceColumns::FrameLeft : SequenceColumns::Life);
    const int right =
        columns.of(span.last, isReference ? SequenceColumns::FrameRight : SequenceColumns::Life);
    const QStringView usual = isNote ? noteFill
        : isReference                ? QStringView(u"#FFFFFF")
                                     : dividerFill;
    const QString fill = step.color.isEmpty() ? usual.toString() : step.color;
    Attributes frame;
    frame.text("uml", u"combinedfragment").number("row", top).number("col", left);
    if (isReference)
        frame.label(u"ref").text("fillcolor", u"#DCE6F1");
    else
        frame.label(u"").text("color", u"none").text("fillcolor", u"none");
    graph.beginGroup(frame);
    graph.beginGroup(Attributes()
                         .text("uml", u"section")
                         .number("row", top)
                         .label(u"")
                         .text("color", isNote ? u"#C2A24A" : u"#8796A8")
                         .text("fillcolor", fill));
    spacer(top, left, 1);
    spacer(top, right, 1);
    const bool isBetween = (span.last - span.first) % 2 == 1;
    const int column = isBetween
        ? columns.of((span.first + span.last) / 2, SequenceColumns::NoteRight)
        : middle(span);
    bareText(top + 1, column, wrapped(step.text, 2 * sizes.note), sizes.font);
    graph.endGroup();
    graph.endGroup();
    row = bottom;
    for (int i = span.first; i <= span.last; ++i) {
        if (!isAwaited[i] && !lines.isEnded(i))
            lines.resume(i, bottom);
    }
}

// The text stands on a line, which it would hide; so that line is left out and the others dotted.
void SequenceWriter::writeDelay(const SequenceStep &step)
{
    const int top = row + 1;
    row = top + 4;
    const int hidden = step.text.isEmpty() ? -1 : int(steps.participants.size() - 1) / 2;
    for (int i = 0; i < steps.participants.size(); ++i) {
        if (isAwaited[i] || lines.isEnded(i))
            continue;
        lines.interrupt(i, top);
        lines.leaveOut(i, top, row, i != hidden);
        lines.resume(i, row);
    }
    if (hidden >= 0) {
        bareText(top + 2, columns.of(hidden, SequenceColumns::Life),
                 wrapped(step.text, 2 * sizes.note), sizes.font);
    }
}

void SequenceWriter::beginFragment(qsizetype i)
{
    const SequenceStep &step = steps.steps[i];
    const SequenceSpan span = columns.spanOf(i);
    const bool isFramed = !step.keyword.isEmpty();
    const QString fill = step.color.isEmpty() ? u"#F7FAFD"_s : step.color;
    row += isFramed ? 2 : 1;
    Attributes attributes;
    attributes.text("uml", u"combinedfragment")
        .number("row", row)
        .number("col",
                span.isEmpty() ? columns.leftEdge()
                               : columns.of(span.first, SequenceColumns::FrameLeft))
        .label(wrapped(step.keyword, sizes.guard));
    if (isFramed)
        attributes.text("fillcolor", u"#DCE6F1");
    else
        attributes.text("color", u"none").text("fillcolor", u"none");
    graph.beginGroup(attributes);
    open.append({.row = row, .isFramed = isFramed, .fill = fill});
    beginSection(step.text, fill, isFramed);
    if (!span.isEmpty())
        spacer(row, columns.of(span.last, SequenceColumns::FrameRight), 1);
    // Its tag hangs at the left of all that is in it, so that the first step may stand beside it.
    // Frames would hide it.
    const SequenceStep::Type next =
        i + 1 < steps.steps.size() ? steps.steps[i + 1].type : SequenceStep::EndFragment;
    if (isFramed
        && (next == SequenceStep::Message || next == SequenceStep::Create
            || next == SequenceStep::Note))
        --row;
}

void SequenceWriter::beginSection(const QString &guard, const QString &fill, bool isFramed)
{
    graph.beginGroup(
        Attributes()
            .text("uml", u"section")
            .number("row", row)
            .label(guard.isEmpty() ? QString() : wrapped(u'[' + guard + u']', sizes.guard))
            .text("color", isFramed ? u"#8796A8" : u"none")
            .text("fillcolor", fill));
}

} // namespace ORR::Companion
