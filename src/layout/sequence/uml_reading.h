#pragma once

#include "graph/dot_graph.h"
#include "layout/sequence/uml_parts.h"

#include <memory>
#include <optional>

// What the elements of a graph are on a sequence diagram, by the rows of umlseq_attributes.h.
namespace ORR::Graph::Layout {

// Nothing if the node is no part of the diagram.
std::optional<UmlNode> readNode(const DotGraph *graph, DotNode *node);

// An edge between two of the nodes. Nothing if it is no part of the diagram, as a return is none
// that comes from anything but an activation.
std::optional<UmlEdge> readEdge(const DotGraph *graph, DotEdge *edge, const QList<UmlNode> &nodes,
                                qsizetype tail, qsizetype head);

// A fragment that holds nothing.
UmlFragment readFragment(const DotGraph *graph, DotSubgraph *subgraph);

UmlSection readSection(const DotGraph *graph, DotSubgraph *subgraph);

// What stands for a section where a node is asked for. Lookups see the section's own attributes,
// then the node defaults of the subgraph around it: a label (or font) of its own counts.
std::unique_ptr<DotNode> nodeForSection(const DotSubgraph *section);

} // namespace ORR::Graph::Layout
