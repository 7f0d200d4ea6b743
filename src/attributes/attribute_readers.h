#pragma once

#include "attributes/attribute_row.h"
#include "graph/attribute_values.h"
#include "graph/dot_graph.h"

#include <optional>
#include <type_traits>

// The rows of a table as typed handles, `area.of(graph, node)`: the way in which an engine reads
// its input, and the only one. A row is read of the elements that it names; another type does not
// compile, and the graph in place of a subgraph, or the reverse, ends a debug build.
namespace ORR::Graph {

// The elements that an object of a type may be.
template <typename Object>
inline constexpr AttributeElements elementsOf{};
template <>
inline constexpr AttributeElements elementsOf<DotSubgraph> =
    AttributeElement::Root | AttributeElement::Cluster;
template <>
inline constexpr AttributeElements elementsOf<DotNode> = AttributeElement::Node;
template <>
inline constexpr AttributeElements elementsOf<DotEdge> = AttributeElement::Edge;

// Whether the very object is one of the elements, which its type does not tell of a subgraph: the
// graph itself is the one without a parent.
template <typename Object>
bool isElementOf(AttributeElements elements, const Object *object)
{
    if constexpr (std::is_same_v<Object, DotSubgraph>)
        return bool(elements
                    & (object->parent ? AttributeElement::Cluster : AttributeElement::Root));
    else
        return bool(elements & elementsOf<Object>);
}

// What all rows can do: find their text. A null text means that the attribute is defined nowhere.
template <AttributeElement... element>
class AttributeReader : public AttributeRow
{
public:
    static constexpr AttributeElements readElements = (AttributeElements() | ... | element);

    template <typename Object>
    static constexpr bool reads = bool(readElements &elementsOf<Object>);

    // Where the text stands, or null; valid until an attribute changes.
    template <typename Object>
    requires reads<Object>
    const QString *find(const DotGraph *graph, const Object *object) const
    {
        Q_ASSERT(isElementOf(readElements, object));
        return lookup == AttributeLookup::Inherited ? graph->findAttribute(object, name)
                                                    : object->attributes.find(name);
    }

    template <typename Object>
    requires reads<Object>
    bool isGiven(const DotGraph *graph, const Object *object) const
    {
        return find(graph, object) != nullptr;
    }

    template <typename Object>
    requires reads<Object> QString text(const DotGraph *graph, const Object *object)
    const
    {
        const QString *found = find(graph, object);
        return found ? *found : QString();
    }

protected:
    // Whether there is one kind of objects, so that subgraphs have a default for it.
    static constexpr bool hasDefault =
        readElements == AttributeElement::Node || readElements == AttributeElement::Edge;

    // The default that a subgraph gives its nodes or its edges.
    QString defaultText(const DotGraph *graph, const DotSubgraph *subgraph) const
        requires(hasDefault)
    {
        return readElements == AttributeElement::Node ? graph->nodeDefault(subgraph, name)
                                                      : graph->edgeDefault(subgraph, name);
    }

    consteval AttributeReader(KnownAttribute attribute, AttributeType kind, AttributeLookup where,
                              std::string_view measure, std::string_view otherwise,
                              std::string_view sentence,
                              std::span<const AttributeWord> choices = {})
        : AttributeRow{attribute, readElements, kind, where, measure, otherwise, sentence, choices}
    {
    }
};

// A text as it stands, for instance a label.
template <AttributeElement... element>
class TextAttribute : public AttributeReader<element...>
{
public:
    consteval TextAttribute(KnownAttribute attribute, AttributeLookup where,
                            std::string_view otherwise, std::string_view sentence)
        : AttributeReader<element...>(attribute, AttributeType::Text, where, {}, otherwise,
                                      sentence)
    {
    }

    template <typename Object>
    QString of(const DotGraph *graph, const Object *object) const
    {
        return this->text(graph, object);
    }
};

// A colour or a gradient, as the text that the paint values are made of.
template <AttributeElement... element>
class ColorAttribute : public AttributeReader<element...>
{
public:
    consteval ColorAttribute(KnownAttribute attribute, AttributeLookup where,
                             std::string_view otherwise, std::string_view sentence)
        : AttributeReader<element...>(attribute, AttributeType::Color, where, {}, otherwise,
                                      sentence)
    {
    }

    template <typename Object>
    QString of(const DotGraph *graph, const Object *object) const
    {
        return this->text(graph, object);
    }
};

// A decimal number; 0 if there is none.
template <AttributeElement... element>
class NumberAttribute : public AttributeReader<element...>
{
public:
    consteval NumberAttribute(KnownAttribute attribute, AttributeLookup where,
                              std::string_view measure, std::string_view otherwise,
                              std::string_view sentence)
        : AttributeReader<element...>(attribute, AttributeType::Number, where, measure, otherwise,
                                      sentence)
    {
    }

    template <typename Object>
    double of(const DotGraph *graph, const Object *object) const
    {
        const QString *text = this->find(graph, object);
        return text ? numberFrom(*text) : 0.0;
    }
};

// A decimal integer; 0 if there is none.
template <AttributeElement... element>
class IntegerAttribute : public AttributeReader<element...>
{
public:
    consteval IntegerAttribute(KnownAttribute attribute, AttributeLookup where,
                               std::string_view measure, std::string_view otherwise,
                               std::string_view sentence)
        : AttributeReader<element...>(attribute, AttributeType::Integer, where, measure, otherwise,
                                      sentence)
    {
    }

    template <typename Object>
    int of(const DotGraph *graph, const Object *object) const
    {
        const QString *text = this->find(graph, object);
        return text ? integerFrom(*text) : 0;
    }

    // None where there is no text, or one that is no integer.
    template <typename Object>
    std::optional<int> given(const DotGraph *graph, const Object *object) const
    {
        const QString *text = this->find(graph, object);
        return text ? givenInteger(*text) : std::nullopt;
    }
};

// A size in inches, read in points; 0 if there is none.
template <AttributeElement... element>
class InchesAttribute : public AttributeReader<element...>
{
public:
    consteval InchesAttribute(KnownAttribute attribute, AttributeLookup where,
                              std::string_view otherwise, std::string_view sentence)
        : AttributeReader<element...>(attribute, AttributeType::Inches, where, "inches", otherwise,
                                      sentence)
    {
    }

    template <typename Object>
    double of(const DotGraph *graph, const Object *object) const
    {
        const QString *text = this->find(graph, object);
        return text ? pointsFromInches(*text) : 0.0;
    }

    // What a subgraph gives its nodes or its edges.
    double defaultOf(const DotGraph *graph, const DotSubgraph *subgraph) const
        requires(AttributeReader<element...>::hasDefault)
    {
        return pointsFromInches(this->defaultText(graph, subgraph));
    }
};

// The two ends of a comma list of numbers; both 0 if there is none.
template <AttributeElement... element>
class NumberPairAttribute : public AttributeReader<element...>
{
public:
    consteval NumberPairAttribute(KnownAttribute attribute, AttributeLookup where,
                                  std::string_view measure, std::string_view otherwise,
                                  std::string_view sentence)
        : AttributeReader<element...>(attribute, AttributeType::NumberPair, where, measure,
                                      otherwise, sentence)
    {
    }

    template <typename Object>
    NumberPair of(const DotGraph *graph, const Object *object) const
    {
        const QString *text = this->find(graph, object);
        return text ? numberPairFrom(*text) : NumberPair();
    }
};

// The two ends of a comma list of sizes in inches, read in points; both 0 if there is none.
template <AttributeElement... element>
class InchPairAttribute : public AttributeReader<element...>
{
public:
    consteval InchPairAttribute(KnownAttribute attribute, AttributeLookup where,
                                std::string_view otherwise, std::string_view sentence)
        : AttributeReader<element...>(attribute, AttributeType::InchPair, where, "inches",
                                      otherwise, sentence)
    {
    }

    template <typename Object>
    NumberPair of(const DotGraph *graph, const Object *object) const
    {
        const QString *text = this->find(graph, object);
        return text ? pointPairFromInches(*text) : NumberPair();
    }

    // What a subgraph gives its nodes or its edges.
    NumberPair defaultOf(const DotGraph *graph, const DotSubgraph *subgraph) const
        requires(AttributeReader<element...>::hasDefault)
    {
        return pointPairFromInches(this->defaultText(graph, subgraph));
    }
};

// One of some words; what it is otherwise is told by the default.
template <AttributeElement... element>
class ChoiceAttribute : public AttributeReader<element...>
{
public:
    consteval ChoiceAttribute(KnownAttribute attribute, AttributeLookup where,
                              std::string_view otherwise, std::string_view sentence,
                              std::span<const AttributeWord> choices)
        : AttributeReader<element...>(attribute, AttributeType::Choice, where, {}, otherwise,
                                      sentence, choices)
    {
    }

    // The number of the word that the text is, in the order of the row; -1 for any other text and
    // for none.
    template <typename Object>
    int of(const DotGraph *graph, const Object *object) const
    {
        const QString *text = this->find(graph, object);
        return text ? wordIn(this->words, *text) : -1;
    }
};

// A text that may hold some words, in whatever surroundings.
template <AttributeElement... element>
class WordsAttribute : public AttributeReader<element...>
{
public:
    consteval WordsAttribute(KnownAttribute attribute, AttributeLookup where,
                             std::string_view otherwise, std::string_view sentence,
                             std::span<const AttributeWord> choices)
        : AttributeReader<element...>(attribute, AttributeType::Words, where, {}, otherwise,
                                      sentence, choices)
    {
    }

    // Whether the text holds the word of this number.
    template <typename Object>
    bool holds(const DotGraph *graph, const Object *object, int word) const
    {
        const QString *text = this->find(graph, object);
        return text && text->contains(latin1(this->words[size_t(word)].word));
    }
};

} // namespace ORR::Graph
