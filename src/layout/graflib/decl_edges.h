#pragma once

#include "graph/dot_graph.h"

namespace ORR::Graph::Layout {

// Gives every edge of a placed declaration graph its polyline of four points: out to one side of
// the tail, across at a middle x, and in to the head. It looks for no way around anything.
//
//   on     attribute            read, written  unit, meaning, default
//   edge   ltail, lhead         read           id of a cluster at which the edge ends instead of
//   its
//                                              node; the node if there is none of that id
//   edge   d1, d2               written        the four x and the four y, in points, with blanks
//                                              between
//   graph  row, col             read           the cell of an end's owner, which picks its lane
//   node, cluster  d1, d2, width, height  read  where they stand, in points
//
// Edges to different cells are pushed apart by a few points of y so that they arrive on separate
// lanes; edges between the same two cells share one.
void routeEdges(DotGraph *graph, DotSubgraph *top);

} // namespace ORR::Graph::Layout
