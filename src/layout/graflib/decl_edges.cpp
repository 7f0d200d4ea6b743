#include "layout/graflib/decl_edges.h"

#include "graph/subgraph_walk.h"
#include "layout/graflib/decl_lanes.h"
#include "layout/graflib/gfdecl_attributes.h"

#include <QHash>

#include <utility>

namespace ORR::Graph::Layout {

namespace Rows = GfdeclAttributes;

namespace {

constexpr double clusterAnchorDepth = 3.0; // below the top of a cluster

// The side of a node, or of the subgraph of that id if there is one.
EdgeAnchor anchor(const DotGraph *graph, const DotNode *node, const QString *clusterId)
{
    if (clusterId && !clusterId->isEmpty()) {
        if (const DotSubgraph *cluster = graph->findSubgraph(*clusterId))
            return {Rows::d1.inheritedNumber(graph, cluster),
                    Rows::d2.inheritedNumber(graph, cluster) + clusterAnchorDepth,
                    Rows::width.inheritedNumber(graph, cluster)};
    }
    return {Rows::d1.inheritedNumber(graph, node),
            Rows::d2.inheritedNumber(graph, node) + Rows::height.inheritedNumber(graph, node) * 0.5,
            Rows::width.inheritedNumber(graph, node)};
}

using LaneOffsets = QHash<const DotSubgraph *, double>;

// The offsets of the cells that the graph's own edges start and end in. Where two owners have one
// address, the one that an edge names later counts.
LaneOffsets offsetsOfOwners(const DotGraph *graph, const DotSubgraph *subgraph)
{
    LaneOffsets offsets;
    QList<const DotSubgraph *> owners;
    QList<CellAddress> cells;
    const auto add = [&](const DotSubgraph *owner) {
        if (offsets.contains(owner))
            return;
        offsets.insert(owner, 0.0);
        owners.append(owner);
        cells.append({Rows::row.of(graph, owner), Rows::col.of(graph, owner)});
    };
    for (const DotEdge *edge : subgraph->edges) {
        add(edge->tail->owner);
        add(edge->head->owner);
    }
    const QList<double> lanes = laneOffsets(cells);
    for (qsizetype i = 0; i < owners.size(); ++i)
        offsets[owners.at(i)] = lanes.at(i);
    return offsets;
}

void routeEdge(DotGraph *graph, DotEdge *edge, const LaneOffsets &offsets)
{
    const DeclEdge line = declEdge(
        anchor(graph, edge->tail, Rows::ltail.find(graph, edge)), offsets.value(edge->tail->owner),
        anchor(graph, edge->head, Rows::lhead.find(graph, edge)), offsets.value(edge->head->owner));
    Rows::lineD1.set(graph, edge, line.x);
    Rows::lineD2.set(graph, edge, line.y);
}

} // namespace

void routeEdges(DotGraph *graph, DotSubgraph *top)
{
    for (DotSubgraph *subgraph : subgraphsInPreorder(top)) {
        if (subgraph->edges.isEmpty())
            continue;
        const LaneOffsets offsets = offsetsOfOwners(graph, subgraph);
        for (DotEdge *edge : std::as_const(subgraph->edges))
            routeEdge(graph, edge, offsets);
    }
}

} // namespace ORR::Graph::Layout
