#include "layout/sequence/uml_collecting.h"

#include "graph/limits.h"
#include "graph/message_text.h"
#include "graph/subgraph_walk.h"
#include "layout/sequence/pending_edges.h"
#include "layout/sequence/uml_reading.h"
#include "layout/sequence/umlseq_attributes.h"

#include <algorithm>
#include <utility>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;

namespace {

namespace Rows = UmlseqAttributes;

// What a message calls a part.
QString nameOf(const UmlFragment &fragment)
{
    return u"\"%1\""_s.arg(messageText(fragment.subgraph->id));
}

QString nameOf(const UmlNode &node)
{
    return node.node ? u"\"%1\""_s.arg(messageText(node.node->id)) : u"the end of a fragment"_s;
}

QString nameOf(const UmlEdge &edge)
{
    return u"\"%1\" -> \"%2\""_s.arg(messageText(edge.edge->tail->id),
                                     messageText(edge.edge->head->id));
}

bool isGridLine(int index)
{
    return index >= 0 && index < Limits::mostGridLines;
}

// Of a cell whose row or column is no line of the grid.
QString gridFailure(UmlCell cell, const QString &name)
{
    const bool badRow = !isGridLine(cell.row);
    return u"Unable to lay out the sequence diagram: %1 %2 of %3 is not between 0 and %4\n"_s.arg(
        badRow ? u"row"_s : u"column"_s, QString::number(badRow ? cell.row : cell.col), name,
        QString::number(Limits::mostGridLines - 1));
}

// The walk over a graph that finds the parts.
class Collector
{
public:
    Collector(DotGraph *dotGraph, UmlParts &umlParts)
        : graph(dotGraph), parts(umlParts), pending(places)
    {
    }

    QString collect();

private:
    struct OpenFragment
    {
        const DotSubgraph *subgraph;
        qsizetype index;
    };

    bool failed() const { return !failure.isNull(); }
    void collectMembers(const DotSubgraph *subgraph);
    void collectFragment(DotSubgraph *subgraph);
    void collectSection(DotSubgraph *subgraph);
    void closeFragment();

    void add(const UmlFragment &fragment);
    void add(const UmlNode &node);
    void add(const UmlEdge &edge);
    template <typename Part>
    void place(const Part &part, UmlPart own, UmlCell cell);

    UmlFragment &innermost() { return parts.fragments[open.constLast().index]; }

    DotGraph *graph;
    UmlParts &parts;
    NodePlaces places;
    PendingEdges pending;
    QList<OpenFragment> open; // those around the subgraph at hand
    QString failure; // null while every part stands on the grid
};

// Ends early after a failure: beyond the limit there is no room to count on.
QString Collector::collect()
{
    const DotSubgraph *root = graph->root();
    const auto enter = [&](DotSubgraph *subgraph) {
        if (failed())
            return false;
        if (subgraph != root) {
            const int kind = Rows::subgraphKind.of(graph, subgraph);
            if (kind == Rows::CombinedFragment)
                collectFragment(subgraph);
            else if (kind == Rows::Section && !open.isEmpty())
                collectSection(subgraph);
            else
                return false;
        }
        collectMembers(subgraph);
        return true;
    };
    const auto leave = [&](const DotSubgraph *subgraph) {
        if (!failed() && !open.isEmpty() && open.constLast().subgraph == subgraph)
            closeFragment();
    };
    walkSubgraphs(graph->root(), enter, leave);
    return failure;
}

// The nodes of a subgraph, then all edges that can be made by now. An edge that had to wait thus
// belongs to the fragment where the last of its ends turned up.
void Collector::collectMembers(const DotSubgraph *subgraph)
{
    for (DotNode *node : subgraph->nodes) {
        const std::optional<UmlNode> read = readNode(graph, node);
        if (!read)
            continue;
        places.insert(node, parts.nodes.size());
        pending.nodeIsKnown(node);
        add(*read);
    }
    for (DotEdge *edge : subgraph->edges)
        pending.add(edge);
    const QList<DotEdge *> ready = pending.takeReady();
    for (DotEdge *edge : ready) {
        const std::optional<UmlEdge> read =
            readEdge(graph, edge, parts.nodes, places.value(edge->tail), places.value(edge->head));
        if (!read)
            continue;
        // Visible or not; of several returns the last one made counts.
        if (read->kind == UmlEdge::Return)
            parts.nodes[read->tail].endRow = read->cell.row;
        add(*read);
    }
}

void Collector::collectFragment(DotSubgraph *subgraph)
{
    const qsizetype index = parts.fragments.size();
    add(readFragment(graph, subgraph));
    open.append({subgraph, index});
}

void Collector::collectSection(DotSubgraph *subgraph)
{
    UmlFragment &fragment = innermost();
    const UmlSection section = readSection(graph, subgraph);
    fragment.sections.append(section);
    fragment.cells.includeRow(section.row);
    parts.markers.push_back(nodeForSection(subgraph));
    add(sectionMarker(section.row, fragment, parts.markers.back().get()));
}

// The spacer that closes a fragment belongs to the one around it.
void Collector::closeFragment()
{
    UmlFragment &fragment = innermost();
    for (const UmlPart part : std::as_const(fragment.contents)) {
        if (part.list == UmlPart::Fragment)
            fragment.cells.enclose(parts.fragments.at(part.index).cells);
    }
    fragment.cells.close();
    open.removeLast();
    add(closingSpacer(fragment));
}

void Collector::add(const UmlFragment &fragment)
{
    place(fragment, {UmlPart::Fragment, parts.fragments.size()}, fragment.cell());
    parts.fragments.append(fragment);
}

void Collector::add(const UmlNode &node)
{
    place(node, {UmlPart::Node, parts.nodes.size()}, node.cell);
    parts.nodes.append(node);
}

void Collector::add(const UmlEdge &edge)
{
    place(edge, {UmlPart::Edge, parts.edges.size()}, edge.cell);
    parts.edges.append(edge);
}

// The fragment around a part reaches out to it, and the grid grows to hold it.
template <typename Part>
void Collector::place(const Part &part, UmlPart own, UmlCell cell)
{
    if (!open.isEmpty()) {
        innermost().cells.include(cell.row, cell.col);
        innermost().contents.append(own);
    }
    if (failed())
        return;
    if (!isGridLine(cell.row) || !isGridLine(cell.col)) {
        failure = gridFailure(cell, nameOf(part));
        return;
    }
    parts.rows = std::max(parts.rows, cell.row + 1);
    parts.cols = std::max(parts.cols, cell.col + 1);
}

} // namespace

QString collectUml(DotGraph *graph, UmlParts &parts)
{
    return Collector(graph, parts).collect();
}

} // namespace ORR::Graph::Layout
