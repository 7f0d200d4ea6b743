#include "attributes/element_words.h"

namespace ORR::Graph {

std::span<const ElementWords> elementWords()
{
    using enum AttributeElement;
    static constexpr ElementWords table[] = {
        {Root, "root", "the graph", "the graph"},
        {Cluster, "cluster", "a subgraph", "subgraphs"},
        {Node, "node", "a node", "nodes"},
        {Edge, "edge", "an edge", "edges"},
    };
    return table;
}

} // namespace ORR::Graph
