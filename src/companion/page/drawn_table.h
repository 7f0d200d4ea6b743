#pragma once

#include "graph/dot_graph.h"
#include "output/page_svg.h"

#include <QHash>
#include <QMap>

#include <vector>

namespace ORR::Companion {

// The objects of a drawing as those of the graph: an object is known by its number, the place of
// its group in the drawing. Those of the graph that have no group there, in charts since they would
// be too small, come behind them: subgraphs, then nodes, then edges.
class DrawnTable
{
public:
    struct Row
    {
        // One of them, or none for what an engine made for a while.
        const Graph::DotSubgraph *subgraph = nullptr;
        const Graph::DotNode *node = nullptr;
        const Graph::DotEdge *edge = nullptr;
        // The innermost subgraph around it that was drawn; of what was not drawn the innermost one
        // that readers can go through.
        int parent = -1;

        const Graph::DotObject *object() const
        {
            if (subgraph)
                return subgraph;
            return node ? static_cast<const Graph::DotObject *>(node) : edge;
        }
    };

    // The graph and the drawing live as long.
    DrawnTable(const Graph::DotGraph &graph, const Graph::PageSvg &drawing);

    const std::vector<Row> &rows() const { return allRows; }
    size_t drawnCount() const { return drawn; } // of the rows
    // The first piece of the object in the drawing, or its row where it has none; -1 for no object
    // of the graph.
    int find(const Graph::DotObject *object) const { return places.value(object, -1); }
    // Further pieces, and the first one of the same object.
    const QMap<int, int> &pieces() const { return furtherPieces; }

private:
    void enterDrawn(const Graph::DotGraph &graph);
    void enterUndrawn(const Graph::DotGraph &graph);
    void enter(const Row &row);

    size_t drawn;
    std::vector<Row> allRows;
    QHash<const Graph::DotObject *, int> places;
    QMap<int, int> furtherPieces;
};

} // namespace ORR::Companion
