#include "invariants/generated_input.h"

#include <QByteArrayList>

#include <random>

using namespace ORR::Drawing;

namespace {

// Makes the text of one graph. Numbers come from the generator alone: the distributions of the
// library differ between its versions.
class Generator
{
public:
    explicit Generator(quint64 seed) : random(seed) { }

    QByteArray chart(const QByteArray &settings, int depth);
    QByteArray bars(const QByteArray &settings);
    QByteArray matrix();
    QByteArray tree();
    QByteArray declarations();
    QByteArray sequence();

    QByteArray oneOf(const QByteArrayList &list) { return list.at(below(int(list.size()))); }

private:
    int below(int end) { return int(random() % quint64(end)); }
    bool oneIn(int count) { return below(count) == 0; }
    QByteArray label();
    QByteArray area();
    template <typename Members>
    QByteArray chartOf(const QByteArray &settings, int depth, Members members);
    QByteArray newNode(const QByteArray &attributes);
    QByteArray newGroup(const QByteArray &attributes);
    QByteArray anyNode() { return 'n' + QByteArray::number(below(nodeCount)); }
    template <typename Members>
    QByteArray nested(int depth, const QByteArray &attributes, Members members);

    std::mt19937_64 random;
    int nodeCount = 0;
    int groupCount = 0;
};

QByteArray quoted(const QByteArray &value)
{
    return '"' + value + '"';
}

QByteArray numbered(int number)
{
    return quoted(QByteArray::number(number));
}

QByteArray Generator::label()
{
    return quoted(oneOf({"", "a", "label", "two words", "a label that is rather long", "b\\nc"}));
}

// Of one size mostly, and some of twenty times and a twentieth of it. With more between them cells
// become slivers, whose places show that weights are stored with six digits.
QByteArray Generator::area()
{
    const double size = 1 + below(900) / 10.0;
    return quoted(QByteArray::number(oneIn(8) ? size * 20 : oneIn(8) ? size / 20 : size));
}

QByteArray Generator::newNode(const QByteArray &attributes)
{
    return 'n' + QByteArray::number(nodeCount++) + " [" + attributes + "];\n";
}

// Its begin; the end is a brace.
QByteArray Generator::newGroup(const QByteArray &attributes)
{
    return "subgraph g" + QByteArray::number(groupCount++) + " { graph [" + attributes + "];\n";
}

// A group of members with groups in it, down to a depth.
template <typename Members>
QByteArray Generator::nested(int depth, const QByteArray &attributes, Members members)
{
    QByteArray text = newGroup(attributes) + members();
    for (int i = below(3); depth > 0 && i > 0; --i)
        text += nested(depth - 1, "label=" + label(), members);
    return text + "}\n";
}

template <typename Members>
QByteArray Generator::chartOf(const QByteArray &settings, int depth, Members members)
{
    QByteArray text = "digraph { graph [" + settings + "];\nnode [fontsize=7]; " + members();
    for (int i = 1 + below(4); i > 0; --i)
        text += nested(depth, "label=" + label(), members);
    if (oneIn(3))
        text += "subgraph key { graph [label=Key legend=\""
            + oneOf({"left", "right", "top", "bottom"})
            + "\"]; k1 [label=one]; k2 [label=two]; }\n";
    return text + "}\n";
}

QByteArray Generator::chart(const QByteArray &settings, int depth)
{
    return chartOf(settings, depth, [this] {
        QByteArray nodes;
        for (int i = 1 + below(7); i > 0; --i)
            nodes += newNode("area=" + area() + " label=" + label());
        return nodes;
    });
}

// Whole values: a stack may be longer than the page by the fractions of its segments. A label along
// a bar makes the whole chart longer, so that the labels are short and the values alike.
QByteArray Generator::bars(const QByteArray &settings)
{
    return chartOf(settings, 0, [this] {
        QByteArray nodes;
        for (int i = 1 + below(7); i > 0; --i)
            nodes += newNode("area=" + numbered(10 + below(90))
                             + " label=" + oneOf({"\"\"", "a", "label"}));
        return nodes;
    });
}

QByteArray Generator::matrix()
{
    QByteArrayList both; // the nodes that are columns and rows
    QByteArray axis;
    const auto members = [&] {
        QByteArray nodes;
        for (int i = 1 + below(4); i > 0; --i) {
            if (axis.isEmpty())
                both += 'n' + QByteArray::number(nodeCount);
            nodes += newNode("label=" + label());
        }
        return nodes;
    };
    QByteArray text = "digraph {\n" + members();
    for (int i = 1 + below(4); i > 0; --i) {
        axis = oneOf({"", "", " axis=x", " axis=y"});
        text += nested(3, "label=" + label() + axis, members);
    }
    // Each row once: where two edges have the same ends, or the wrong ones, their squares lie one
    // upon the other.
    for (const QByteArray &tail : std::as_const(both))
        text += tail + " -> " + oneOf(both) + " [label=" + quoted(oneOf({"", "1", "27"})) + "];\n";
    return text + "}\n";
}

QByteArray Generator::tree()
{
    QByteArray text = "digraph { graph [rankdir=" + oneOf({"LR", "RL", "TB", "BT"})
        + " crossing=" + oneOf({"true", "false"}) + " sort=" + oneOf({"true", "false"})
        + " nodesep=\"0.2\" ranksep=\"0.5\" pad=\"0.1\" headsegment=\"0.1\" tailsegment=\"0.1\"];\n"
          "node [margin=\"0.1,0.05\"];\n";
    for (int i = 10 + below(40); i > 0; --i) {
        text += newNode("label=" + label() + " shape="
                        + oneOf({"rectangle", "oval", "hexagon", "octagon", "parallelogram"})
                        + " expander=" + oneOf({"true", "false"})
                        + " peripheries=" + oneOf({"1", "1", "2"}));
    }
    for (int i = 1; i < nodeCount; ++i)
        text += 'n' + QByteArray::number(below(i)) + " -> n" + QByteArray::number(i)
            + " [arrowhead=normal];\n";
    return text + "}\n";
}

QByteArray Generator::declarations()
{
    const auto members = [&] {
        QByteArray nodes;
        for (int i = 1 + below(4); i > 0; --i)
            nodes += newNode("label=" + label());
        return nodes;
    };
    QByteArray text = "digraph { graph [grid=" + oneOf({"row", "col", "table"})
        + " nodesep=\"0.1\" margin=\"0,0.1\" pad=\"0.3\" color=black];\n"
          "node [shape=rectangle margin=\"0.05\"];\n";
    // No two share a cell, and what is nested stands below each other.
    const int columns = 1 + below(3);
    for (int cell = 0; cell < 6; ++cell) {
        text += newGroup("row=" + numbered(cell / columns) + " col=" + numbered(cell % columns));
        text += members();
        for (int row = below(3); row > 0; --row)
            text += nested(0, "row=" + numbered(row) + " col=\"0\"", members);
        text += "}\n";
    }
    for (int i = 0; i < 8; ++i)
        text += anyNode() + " -> " + anyNode() + " [arrowhead=normal];\n";
    return text + "}\n";
}

QByteArray Generator::sequence()
{
    const int lifelines = 2 + below(4);
    const int calls = 3 + below(10);
    QByteArray text = "digraph {\n";
    for (int i = 0; i < lifelines; ++i) {
        const QByteArray column = QByteArray::number(i);
        text += 'o' + column + " [uml=object row=0 col=" + column + " label=\"Object " + column
            + "\"];\n";
        text += 'e' + column + " [uml=spacer row=" + QByteArray::number(4 * calls + 2)
            + " col=" + column + " width=1 height=1];\n";
        text += 'o' + column + " -> e" + column + " [uml=lifeline style=dashed];\n";
    }
    for (int call = 0; call < calls; ++call) {
        const int row = 4 * call + 2;
        const int caller = below(lifelines);
        const int callee = (caller + 1 + below(lifelines - 1)) % lifelines;
        const auto end = [&](char name, int column) {
            const QByteArray id = name + QByteArray::number(call);
            return id + " [uml=activation row=" + QByteArray::number(row)
                + " col=" + QByteArray::number(column) + "]; ";
        };
        QByteArray message = end('s', caller) + end('t', callee);
        message += 's' + QByteArray::number(call) + " -> t" + QByteArray::number(call)
            + " [uml=message label=" + label() + "]; ";
        message += 't' + QByteArray::number(call) + " -> s" + QByteArray::number(call)
            + " [uml=return visible=true row=" + QByteArray::number(row + 2) + "]; ";
        message += 's' + QByteArray::number(call) + " -> t" + QByteArray::number(call)
            + " [uml=return row=" + QByteArray::number(row + 2) + "];\n";
        if (oneIn(3)) {
            message = newGroup("uml=combinedfragment label=opt row=" + numbered(row - 1)
                               + " col=" + numbered(std::min(caller, callee)))
                + newGroup("uml=section label=\"[if]\" row=" + numbered(row - 1)) + message
                + "} }\n";
        }
        text += message;
    }
    return text + "}\n";
}

} // namespace

QByteArray generatedInput(LayoutIndex layout, quint64 seed)
{
    Generator random(seed);
    switch (layout) {
    case LayoutIndex::GfTree:
        return random.tree();
    case LayoutIndex::GfDecl:
        return random.declarations();
    case LayoutIndex::UmlSeq:
        return random.sequence();
    case LayoutIndex::Matrix:
        return random.matrix();
    case LayoutIndex::FlatBubble:
        return random.chart("width=\"" + random.oneOf({"0", "300", "800"}) + '"', 3);
    case LayoutIndex::Sunburst:
        return random.chart("sweep=\"" + random.oneOf({"360", "180", "90"}) + "\" r1=\""
                                + random.oneOf({"0", "30"}) + "\" rstep=40",
                            3);
    case LayoutIndex::Treemap:
        return random.chart("width=\"" + random.oneOf({"300", "700"}) + "\" height=400", 3);
    case LayoutIndex::Bar:
        return random.bars("rankdir=" + random.oneOf({"LR", "RL", "TB", "BT"}) + " width=400");
    }
    return {};
}
