#pragma once

#include "graph/dot_graph.h"

namespace ORR::Graph::Layout {

// Writes the polylines of all edges of a placed declaration graph, see `declEdge`. An edge ends at
// its node or, if `ltail` or `lhead` has the id of a subgraph, at the side of that.
//
// Edges to different cells are pushed apart by a few points of y so that they arrive on separate
// lanes; edges between the same two cells share one. A lane goes by the owner of the node, whatever
// the edge ends at.
void routeEdges(DotGraph *graph, DotSubgraph *top);

} // namespace ORR::Graph::Layout
