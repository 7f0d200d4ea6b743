#include "companion/produce/sequence_lifelines.h"

#include <utility>

namespace ORR::Companion {

SequenceLifelines::SequenceLifelines(GraphText *text, const SequenceColumns &columns,
                                     qsizetype participants)
    : graph(text), grid(columns), lines(participants)
{
}

void SequenceLifelines::link(const GraphText::Id &from, const GraphText::Id &to, QStringView style)
{
    graph->edge(
        from, to,
        Attributes().text("uml", u"lifeline").text("style", style).text("color", u"#8796A8"));
}

// A spot on the line.
GraphText::Id SequenceLifelines::place(int participant, int row)
{
    return graph->node(Attributes()
                           .text("uml", u"spacer")
                           .number("row", row)
                           .number("col", grid.of(participant, SequenceColumns::Life)));
}

void SequenceLifelines::begin(int participant, const GraphText::Id &head, int row)
{
    lines[participant] = {.last = head, .lastRow = row};
}

void SequenceLifelines::end(int participant, const GraphText::Id &foot, int row)
{
    through(participant, foot, row);
    lines[participant].isEnded = true;
}

void SequenceLifelines::openBar(int participant, int row, const QString &fill)
{
    Line &line = lines[participant];
    Attributes attributes;
    attributes.text("uml", u"activation")
        .number("row", row)
        .number("col", grid.of(participant, SequenceColumns::Life));
    if (!line.bars.isEmpty())
        attributes.number("nesting", double(line.bars.size()));
    if (!fill.isEmpty())
        attributes.text("fillcolor", fill);
    const GraphText::Id id = graph->node(attributes);
    if (line.bars.isEmpty())
        through(participant, id, row);
    line.bars.append({.id = id, .row = row, .fill = fill});
}

// What ends a bar is a return, which is not drawn.
void SequenceLifelines::closeBar(int participant, int row)
{
    const Bar bar = lines[participant].bars.takeLast();
    graph->edge(bar.id, bar.id, Attributes().text("uml", u"return").number("row", row));
}

void SequenceLifelines::interrupt(int participant, int row)
{
    QList<QString> fills;
    while (bars(participant) > 0) {
        fills.prepend(lines[participant].bars.constLast().fill);
        closeBar(participant, row);
    }
    lines[participant].interrupted = fills;
}

void SequenceLifelines::resume(int participant, int row)
{
    for (const QString &fill : std::exchange(lines[participant].interrupted, {}))
        openBar(participant, row, fill);
}

void SequenceLifelines::through(int participant, const GraphText::Id &node, int row)
{
    Line &line = lines[participant];
    if (line.isEnded)
        return;
    // Between two things on one row there is no line.
    if (!line.last.isEmpty() && line.lastRow < row)
        link(line.last, node, u"dashed");
    line.last = node;
    line.lastRow = row;
}

void SequenceLifelines::leaveOut(int participant, int from, int to, bool isDotted)
{
    const GraphText::Id upper = place(participant, from);
    const GraphText::Id lower = place(participant, to);
    through(participant, upper, from);
    if (isDotted)
        link(upper, lower, u"dotted");
    lines[participant].last = lower;
    lines[participant].lastRow = to;
}

} // namespace ORR::Companion
