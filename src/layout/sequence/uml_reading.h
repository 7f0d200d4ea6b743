#pragma once

#include "graph/dot_graph.h"
#include "layout/sequence/grid_object.h"
#include "layout/sequence/uml_fragment.h"

#include <memory>

// What the elements of a graph are on a sequence diagram, by the rows of umlseq_attributes.h.
namespace ORR::Graph::Layout {

// The object that a node stands for; null if it stands for none.
std::unique_ptr<GridObject> makeNodeObject(const DotGraph *graph, DotNode *node);

// The object of an edge between two objects; null if it stands for none, as a return does that
// comes from anything but an activation.
std::unique_ptr<GridObject> makeEdgeObject(const DotGraph *graph, DotEdge *edge,
                                           const GridObject *tail, const GridObject *head);

std::unique_ptr<UmlCombinedFragment> makeFragment(const DotGraph *graph, DotSubgraph *subgraph);

} // namespace ORR::Graph::Layout
