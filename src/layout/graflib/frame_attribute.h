#pragma once

#include "attributes/attribute_readers.h"

// The attributes of a graph's frame, which is drawn like a node in the graph: each is the graph's
// own one and, where the graph has none, the default that the nodes in it have. What the graphs
// around say of themselves does not count; the defaults that they give their nodes do.
namespace ORR::Graph::Layout {

class FrameAttribute : public AttributeReader<AttributeElement::Root, AttributeElement::Cluster>
{
protected:
    consteval FrameAttribute(KnownAttribute attribute, AttributeType kind, std::string_view measure,
                             std::string_view otherwise, std::string_view sentence,
                             std::span<const AttributeWord> choices = {})
        : AttributeReader(attribute, kind, AttributeLookup::OwnOrNodeDefault, measure, otherwise,
                          sentence, choices)
    {
    }

    QString text(const DotGraph *graph, const DotSubgraph *subgraph) const
    {
        const QString *own = AttributeReader::find(graph, subgraph);
        return own ? *own : graph->nodeDefault(subgraph, name);
    }

private:
    // They know nothing of the defaults of nodes.
    using AttributeReader::find;
    using AttributeReader::isGiven;
};

// A colour, as the text that the paint values are made of.
class FrameColor : public FrameAttribute
{
public:
    consteval FrameColor(KnownAttribute attribute, std::string_view otherwise,
                         std::string_view sentence)
        : FrameAttribute(attribute, AttributeType::Color, {}, otherwise, sentence)
    {
    }

    QString of(const DotGraph *graph, const DotSubgraph *subgraph) const
    {
        return text(graph, subgraph);
    }
};

// A decimal integer; 0 if there is none.
class FrameInteger : public FrameAttribute
{
public:
    consteval FrameInteger(KnownAttribute attribute, std::string_view measure,
                           std::string_view otherwise, std::string_view sentence)
        : FrameAttribute(attribute, AttributeType::Integer, measure, otherwise, sentence)
    {
    }

    int of(const DotGraph *graph, const DotSubgraph *subgraph) const
    {
        return integerFrom(text(graph, subgraph));
    }
};

// One of some words.
class FrameChoice : public FrameAttribute
{
public:
    consteval FrameChoice(KnownAttribute attribute, std::string_view otherwise,
                          std::string_view sentence, std::span<const AttributeWord> choices)
        : FrameAttribute(attribute, AttributeType::Choice, {}, otherwise, sentence, choices)
    {
    }

    // The number of the word that the text is; -1 for any other text and for none.
    int of(const DotGraph *graph, const DotSubgraph *subgraph) const
    {
        return wordIn(words, text(graph, subgraph));
    }
};

// A text that may hold some words, in whatever surroundings.
class FrameWords : public FrameAttribute
{
public:
    consteval FrameWords(KnownAttribute attribute, std::string_view otherwise,
                         std::string_view sentence, std::span<const AttributeWord> choices)
        : FrameAttribute(attribute, AttributeType::Words, {}, otherwise, sentence, choices)
    {
    }

    // The text, as the pen is made of it.
    QString of(const DotGraph *graph, const DotSubgraph *subgraph) const
    {
        return text(graph, subgraph);
    }

    // Whether the text holds the word of this number.
    bool holds(const DotGraph *graph, const DotSubgraph *subgraph, int word) const
    {
        return text(graph, subgraph).contains(latin1(words[size_t(word)].word));
    }
};

} // namespace ORR::Graph::Layout
