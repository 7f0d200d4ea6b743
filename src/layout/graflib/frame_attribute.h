#pragma once

#include "attributes/attribute_readers.h"

namespace ORR::Graph::Layout {

// An attribute of a graph's frame, which is drawn like a node in the graph: it is the graph's own
// one and, where the graph has none, the default that the nodes in it have. What the graphs around
// say does not count.
class FrameAttribute : public AttributeReader<AttributeElement::Root, AttributeElement::Cluster>
{
public:
    consteval FrameAttribute(KnownAttribute attribute, AttributeType kind, std::string_view measure,
                             std::string_view otherwise, std::string_view sentence,
                             std::span<const AttributeWord> choices = {})
        : AttributeReader(attribute, kind, AttributeLookup::Own, measure, otherwise, sentence,
                          choices)
    {
    }

    QString of(const DotGraph *graph, const DotSubgraph *subgraph) const
    {
        return ownOrNodeDefault(graph, subgraph, name);
    }

    // Whether the text is the word of this number.
    bool is(const DotGraph *graph, const DotSubgraph *subgraph, int word) const
    {
        return wordIn(words, of(graph, subgraph)) == word;
    }

    // Whether the text holds the word of this number.
    bool holds(const DotGraph *graph, const DotSubgraph *subgraph, int word) const
    {
        return of(graph, subgraph).contains(latin1(words[size_t(word)].word));
    }
};

} // namespace ORR::Graph::Layout
