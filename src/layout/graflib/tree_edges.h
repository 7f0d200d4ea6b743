#pragma once

#include "layout/graflib/polyline_text.h"
#include "layout/graflib/tree_columns.h"

namespace ORR::Graph::Layout {

// The runs of a tree's edges, in points.
struct EdgeRuns
{
    double out = 0.0; // along the levels, where an edge leaves its tail
    double in = 0.0; // and where it comes to its head
    bool straight = false; // there is no room for both: it goes across where the last run begins
};

// A placed node.
struct PlacedNode
{
    AxisPair place; // the near sides
    AxisPair size;
};

// The four points of an edge: it leaves the far side of its tail, goes across behind the first run,
// and comes to the head over the last one, at the middles of both nodes.
struct TreeEdge
{
    FourNumbers along;
    FourNumbers across;
};
TreeEdge treeEdge(const PlacedNode &tail, const PlacedNode &head, const EdgeRuns &runs,
                  bool flipped);

} // namespace ORR::Graph::Layout
