#pragma once

#include "attributes/attribute_row.h"

namespace ORR::Graph {

// How an element is called.
struct ElementWords
{
    AttributeElement element;
    std::string_view name; // "root", "cluster", "node", "edge"
    std::string_view one; // "the graph", "a subgraph", "a node", "an edge"
    std::string_view many; // "the graph", "subgraphs", "nodes", "edges"
};

// Those of all elements.
std::span<const ElementWords> elementWords();

} // namespace ORR::Graph
