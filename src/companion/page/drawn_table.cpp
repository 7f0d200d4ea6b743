#include "companion/page/drawn_table.h"

#include "graph/subgraph_walk.h"

namespace ORR::Companion {

using namespace Graph;

DrawnTable::DrawnTable(const DotGraph &graph, const PageSvg &drawing)
    : allRows(drawing.objects().size())
{
    for (size_t i = 0; i < drawing.objects().size(); ++i) {
        const DotObject *object = drawing.objects()[i].object;
        if (!object)
            continue;
        if (const int first = find(object); first >= 0)
            furtherPieces.insert(int(i), first);
        else
            places.insert(object, int(i));
    }

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
    for (auto piece = furtherPieces.cbegin(); piece != furtherPieces.cend(); ++piece)
        allRows[size_t(piece.key())] = allRows[size_t(piece.value())];
}

void DrawnTable::enter(const Row &row)
{
    if (const int place = find(row.object()); place >= 0)
        allRows[size_t(place)] = row;
}

} // namespace ORR::Companion
