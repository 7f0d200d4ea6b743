// The messages of a sequence, with what begins at them.
#include "companion/produce/sequence_writer.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr int halfBar = 5;
constexpr int besideBar = 4; // each bar from the one that it lies on

// How a line looks, of both kinds of edges that are messages.
Attributes lineOf(const char *kind, const SequenceStep &step)
{
    Attributes attributes;
    attributes.text("uml", QString::fromLatin1(kind));
    if (step.isDashed)
        attributes.text("style", u"dashed");
    if (!step.color.isEmpty())
        attributes.text("color", step.color);
    return attributes;
}

} // namespace

void SequenceWriter::writeMessage(qsizetype i)
{
    const SequenceStep &step = steps.steps[i];
    if (step.from >= 0)
        standUp(step.from);
    ++row;
    bool opensTarget = false;
    QString fill;
    openBarsBehind(i, &opensTarget, &fill);

    const bool isLeftward =
        columns.of(step.from, SequenceColumns::Life) > columns.of(step.to, SequenceColumns::Life);
    const Direction forth = isLeftward ? Leftward : Rightward;
    const Direction back = step.from == step.to ? Leftward : isLeftward ? Rightward : Leftward;
    const bool isReturn = step.from != step.to
        && (step.head == SequenceStep::Open || step.head == SequenceStep::NoHead);
    const bool isPlainTail = step.tail != SequenceStep::Cross && step.tail != SequenceStep::Circle;
    GraphText::Id source;
    if (isReturn)
        source = openTail(step.from, forth);
    else if (isPlainTail && step.from >= 0 && lines.bars(step.from) > 0)
        source = lines.bar(step.from);
    else
        source = end(step.from, step.tail, back);

    GraphText::Id target;
    if (step.to >= 0 && isAwaited[step.to]) {
        target = createdTarget(step.to);
    } else if (destroysTarget(i)) {
        while (lines.bars(step.to) > 0)
            lines.closeBar(step.to, row);
        lines.end(step.to, cross(step.to), row);
        target = spacer(row, columns.of(step.to, SequenceColumns::Life), 10);
    } else if (opensTarget) {
        lines.openBar(step.to, row, fill);
        target = lines.bar(step.to);
    } else {
        target = end(step.to, step.head, step.from == step.to ? Leftward : forth);
    }
    drawArrow(step, source, target, step.head, true);
    if (!isPlainTail && isReturn)
        end(step.from, step.tail, back);
    if (step.from == step.to || step.tail == SequenceStep::NoHead || !isPlainTail)
        return;
    const GraphText::Id backSource =
        step.tail == SequenceStep::Open ? openTail(step.to, back) : end(step.to, step.tail, forth);
    drawArrow(step, backSource, end(step.from, step.tail, back), step.tail, false);
}

// Bars that begin right behind a message do so at it.
void SequenceWriter::openBarsBehind(qsizetype i, bool *opensTarget, QString *fill)
{
    const SequenceStep &message = steps.steps[i];
    const bool opensSource =
        message.from >= 0 && message.from != message.to && lines.bars(message.from) == 0;
    for (qsizetype next = i + 1; next < steps.steps.size(); ++next) {
        const SequenceStep &step = steps.steps[next];
        if (step.type != SequenceStep::Activate || isTaken[next])
            return;
        if (step.to == message.to && !*opensTarget && !isAwaited[step.to]) {
            *opensTarget = true;
            *fill = step.color;
            isTaken[next] = true;
        } else if (step.to == message.from && opensSource && lines.bars(step.to) == 0) {
            lines.openBar(step.to, row, step.color);
            isTaken[next] = true;
        }
    }
}

// An open head is that of a return.
void SequenceWriter::drawArrow(const SequenceStep &step, const GraphText::Id &source,
                               const GraphText::Id &target, SequenceStep::Head head, bool hasText)
{
    const bool isReturn =
        step.from != step.to && (head == SequenceStep::Open || head == SequenceStep::NoHead);
    Attributes attributes = lineOf(isReturn ? "return" : "message", step);
    if (isReturn)
        attributes.number("row", row).text("visible", u"true");
    if (hasText && !step.text.isEmpty())
        attributes.label(wrapped(step.text, sizes.message));
    graph.edge(source, target, attributes);
}

// A spot on the side of a line, or of the innermost bar there, to which a message in that direction
// comes.
GraphText::Id SequenceWriter::touch(int participant, Direction direction)
{
    int width = 1;
    if (participant >= 0 && lines.bars(participant) > 0) {
        const int shift = besideBar * int(lines.bars(participant) - 1);
        width = 2 * (direction == Rightward ? std::max(0, halfBar - shift) : halfBar + shift);
    }
    return spacer(row, columns.of(participant, SequenceColumns::Life), width);
}

// Where a message arrives, or leaves if it is seen from the other side.
GraphText::Id SequenceWriter::end(int participant, SequenceStep::Head head, Direction direction)
{
    if (head != SequenceStep::Cross && head != SequenceStep::Circle)
        return touch(participant, direction);
    // An arrow ends at the upper side of what it goes to, so that it goes to a spot in the middle.
    const int column = columns.of(participant, SequenceColumns::Life);
    if (head == SequenceStep::Cross) {
        cross(participant);
        return spacer(row, column, 10);
    }
    graph.node(Attributes()
                   .text("uml", u"foundmessage")
                   .number("row", row)
                   .number("col", column)
                   .text("color", u"#34506E")
                   .text("fillcolor", u"#FFFFFF"));
    return spacer(row, column, 6);
}

GraphText::Id SequenceWriter::cross(int participant)
{
    return bareText(row, columns.of(participant, SequenceColumns::Life), u"\u00d7", sizes.font + 9);
}

// Whether the receiver is destroyed right behind a message, which then goes to the cross.
bool SequenceWriter::destroysTarget(qsizetype i)
{
    const int target = steps.steps[i].to;
    if (target < 0 || target == steps.steps[i].from || isAwaited[target] || lines.isEnded(target))
        return false;
    qsizetype next = i + 1;
    while (next < steps.steps.size() && steps.steps[next].type == SequenceStep::Deactivate
           && steps.steps[next].to == target)
        ++next;
    if (next == steps.steps.size() || steps.steps[next].type != SequenceStep::Destroy
        || steps.steps[next].to != target)
        return false;
    isTaken[next] = true;
    return true;
}

// A return comes from a bar; one without a length is not seen.
GraphText::Id SequenceWriter::openTail(int participant, Direction direction)
{
    const qsizetype bars = participant < 0 ? 0 : lines.bars(participant);
    const double onLine = direction == Rightward ? 0 : 1; // or beside it, at the right
    return graph.node(Attributes()
                          .text("uml", u"activation")
                          .number("row", row)
                          .number("col", columns.of(participant, SequenceColumns::Life))
                          .number("nesting", bars > 0 ? double(bars - 1) : onLine)
                          .text("color", u"none")
                          .text("fillcolor", u"none"));
}

// The message meets the box in the middle of its side, which is as wide as its text.
GraphText::Id SequenceWriter::createdTarget(int participant)
{
    isAwaited[participant] = false;
    lines.begin(participant, object(participant, row), row);
    const int half = int(objectWidth(participant)) / 2;
    return spacer(row, columns.of(participant, SequenceColumns::Life), 2 * half + 2);
}

} // namespace ORR::Companion
