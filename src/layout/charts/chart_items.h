#pragma once

#include "device/color_value.h"
#include "graph/dot_graph.h"

#include <QList>

namespace ORR::Graph::Layout {

// What a chart shows of a subgraph: one of its child subgraphs or one of its nodes.
struct ChartItem
{
    DotSubgraph *subgraph = nullptr; // null for a node
    DotNode *node = nullptr; // null for a subgraph
    double area = 0.0; // its `area` attribute
};

// Sums `area` over all nodes below `subgraph` and writes each subgraph's total as its own `area`.
// The attribute holds six significant digits, the returned total is exact.
double sumArea(DotGraph *graph, DotSubgraph *subgraph);

// The items of a subgraph, child subgraphs before nodes, sorted by `area`. Equal areas keep that
// order; what is not a number counts as smaller than every number.
QList<ChartItem> chartItems(const DotGraph *graph, const DotSubgraph *subgraph, bool ascending);

// The areas of the items, in their order.
QList<double> areasOf(const QList<ChartItem> &items);

// Whether `a` was made before `b` as far as automatic ids tell: by the number in "__N<number>" or
// "cluster_<number>" (0 for any other id), then by the id itself.
bool chartItemLess(const ChartItem &a, const ChartItem &b);

// Sorts with `chartItemLess`, reading the number of each id once. Equal items keep their order.
void sortByIdNumber(QList<ChartItem> &items);

// The colour at `t` (0 to 1) between two colours, opaque; invalid if either of them is.
ColorValue colorInterpolate(const ColorValue &a, const ColorValue &b, double t);

} // namespace ORR::Graph::Layout
