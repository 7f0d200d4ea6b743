#include "companion/page/drawn_table.h"

#include "graph/subgraph_walk.h"

namespace ORR::Companion {

using namespace Graph;

namespace {

// Readers go through the groups around an object one by one.
constexpr qsizetype deepestPath = 400;

} // namespace

DrawnTable::DrawnTable(const DotGraph &graph, const PageSvg &drawing)
    : drawn(drawing.objects().size()), allRows(drawn)
{
    for (size_t i = 0; i < drawn; ++i) {
        const DotObject *object = drawing.objects()[i].object;
        if (!object)
            continue;
        if (const int first = find(object); first >= 0)
            furtherPieces.insert(int(i), first);
        else
            places.insert(object, int(i));
    }
    enterDrawn(graph);
    enterUndrawn(graph);
    for (auto piece = furtherPieces.cbegin(); piece != furtherPieces.cend(); ++piece)
        allRows[size_t(piece.key())] = allRows[size_t(piece.value())];
}

void DrawnTable::enterDrawn(const DotGraph &graph)
{
    QList<int> around{-1}; // the innermost drawn subgraphs at each level of the walk
    walkSubgraphs(
        graph.root(),
        [&](const DotSubgraph *subgraph) {
            const int outer = around.constLast();
            enter({.subgraph = subgraph, .parent = outer});
            const int own = find(subgraph);
            around.append(own < 0 ? outer : own);
            for (const DotNode *node : subgraph->nodes)
                enter({.node = node, .parent = around.constLast()});
            for (const DotEdge *edge : subgraph->edges)
                enter({.edge = edge, .parent = around.constLast()});
            return true;
        },
        [&](const DotSubgraph *) { around.removeLast(); });
}

void DrawnTable::enterUndrawn(const DotGraph &graph)
{
    std::vector<Row> nodes;
    std::vector<Row> edges;
    QList<int> around{-1}; // the innermost subgraphs with a row at each level of the walk
    const auto isMissing = [&](const DotObject *object) { return find(object) < 0; };
    walkSubgraphs(
        graph.root(),
        [&](const DotSubgraph *subgraph) {
            const int outer = around.constLast();
            const bool isTold = subgraph->parent || find(subgraph) >= 0;
            if (isTold && isMissing(subgraph)) {
                places.insert(subgraph, int(allRows.size()));
                allRows.push_back({.subgraph = subgraph, .parent = outer});
            }
            around.append(isTold && around.size() <= deepestPath ? find(subgraph) : outer);
            for (const DotNode *node : subgraph->nodes) {
                if (isMissing(node))
                    nodes.push_back({.node = node, .parent = around.constLast()});
            }
            for (const DotEdge *edge : subgraph->edges) {
                if (isMissing(edge))
                    edges.push_back({.edge = edge, .parent = around.constLast()});
            }
            return true;
        },
        [&](const DotSubgraph *) { around.removeLast(); });
    for (const std::vector<Row> *const rows : {&nodes, &edges}) {
        for (const Row &row : *rows) {
            places.insert(row.object(), int(allRows.size()));
            allRows.push_back(row);
        }
    }
}

void DrawnTable::enter(const Row &row)
{
    if (const int place = find(row.object()); place >= 0)
        allRows[size_t(place)] = row;
}

} // namespace ORR::Companion
