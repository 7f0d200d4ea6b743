#include "layout/graflib/decl_edges.h"

#include "graph/attribute_values.h"
#include "graph/subgraph_walk.h"
#include "layout/graflib/graflib_names.h"
#include "layout/graflib/polyline_text.h"

#include <QHash>
#include <QSet>

#include <cmath>
#include <utility>

namespace ORR::Graph::Layout {

namespace {

using Cell = std::pair<int, int>; // row, column

// Each list of cells hands out its own offsets, in this order, to the cells that are in use.
constexpr Cell lanePrimary[] = {{0, 1}, {0, 0}, {1, 0}};
constexpr Cell laneSecondary[] = {{0, 2}, {1, 2}};

constexpr double laneStep = 6.0;
constexpr double clusterAnchorDepth = 3.0; // below the top of a cluster
constexpr double alignedWithin = 4.0; // ends no further apart in x count as standing in line
constexpr double loopDepth = 15.0; // how far an edge between them goes out to the left

struct Anchor
{
    double x = 0.0; // left side of what the edge ends at
    double y = 0.0;
    double width = 0.0;
};

Anchor clusterAnchor(const DotGraph *graph, const DotSubgraph *cluster)
{
    const auto number = [&](const QString &name) {
        return numberFrom(graph->graphAttribute(cluster, name));
    };
    return {number(Names::d1), number(Names::d2) + clusterAnchorDepth, number(Names::width)};
}

Anchor edgeAnchor(const DotGraph *graph, const DotNode *node, const QString &clusterName)
{
    if (!clusterName.isEmpty()) {
        if (const DotSubgraph *cluster = graph->findSubgraph(clusterName))
            return clusterAnchor(graph, cluster);
    }
    const auto number = [&](const QString &name) {
        return numberFrom(graph->nodeAttribute(node, name));
    };
    return {number(Names::d1), number(Names::d2) + number(Names::height) * 0.5,
            number(Names::width)};
}

using LaneOffsets = QHash<const DotSubgraph *, double>;

// The offsets of the cells that the graph's own edges start and end in. Where two owners have one
// address, the one that an edge names later counts.
LaneOffsets laneOffsets(const DotGraph *graph, const DotSubgraph *subgraph)
{
    QHash<Cell, const DotSubgraph *> owners;
    QSet<const DotSubgraph *> seen;
    const auto add = [&](const DotSubgraph *owner) {
        if (seen.contains(owner))
            return;
        seen.insert(owner);
        owners.insert({integerFrom(graph->graphAttribute(owner, Names::row)),
                       integerFrom(graph->graphAttribute(owner, Names::col))},
                      owner);
    };
    for (const DotEdge *edge : subgraph->edges) {
        add(edge->tail->owner);
        add(edge->head->owner);
    }

    LaneOffsets offsets;
    const auto handOut = [&](const auto &lanes) {
        double offset = 0.0;
        for (const Cell &cell : lanes) {
            if (const DotSubgraph *owner = owners.value(cell)) {
                offsets.insert(owner, offset);
                offset += laneStep;
            }
        }
    };
    handOut(lanePrimary);
    handOut(laneSecondary);
    return offsets;
}

void routeEdge(DotGraph *graph, DotEdge *edge, const LaneOffsets &offsets)
{
    const Anchor tail = edgeAnchor(graph, edge->tail, graph->edgeAttribute(edge, Names::ltail));
    const Anchor head = edgeAnchor(graph, edge->head, graph->edgeAttribute(edge, Names::lhead));
    double startX = tail.x;
    double middleX = tail.x - loopDepth;
    double endX = head.x;
    if (!(std::abs(head.x - tail.x) <= alignedWithin)) {
        if (head.x <= tail.x) {
            endX = head.x + head.width;
            middleX = (head.x + head.width + tail.x) * 0.5;
        } else {
            startX = tail.x + tail.width;
            middleX = (head.x + tail.x + tail.width) * 0.5;
        }
    }
    // Each end takes the offset of the other end's cell, so that edges from one node to several
    // cells leave it on separate lanes. That is meant.
    const double startY = tail.y + offsets.value(edge->head->owner);
    const double endY = head.y + offsets.value(edge->tail->owner);

    graph->setEdgeAttribute(edge, Names::d1, polylineText({startX, middleX, middleX, endX}));
    graph->setEdgeAttribute(edge, Names::d2, polylineText({startY, startY, endY, endY}));
}

} // namespace

void routeEdges(DotGraph *graph, DotSubgraph *top)
{
    for (DotSubgraph *subgraph : subgraphsInPreorder(top)) {
        if (subgraph->edges.isEmpty())
            continue;
        const LaneOffsets offsets = laneOffsets(graph, subgraph);
        for (DotEdge *edge : std::as_const(subgraph->edges))
            routeEdge(graph, edge, offsets);
    }
}

} // namespace ORR::Graph::Layout
