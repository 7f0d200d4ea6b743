#pragma once

#include "graph/dot_graph.h"

#include <QString>

// What a drawing says about itself as a whole.
namespace ORR::Graph {

// The label of the root in one line and without markup, else the name of the graph, unless it is
// the one that our own texts have for every graph; empty if there is none. For null too.
QString graphTitle(const DotGraph *graph);

// How many objects there are: "3 nodes, 1 edge, 2 clusters", where every subgraph counts as a
// cluster. Empty for null.
QString graphCounts(const DotGraph *graph);

} // namespace ORR::Graph
