#include "attributes/attribute_row.h"

#include "attributes/element_words.h"

namespace ORR::Graph {

using namespace Qt::StringLiterals;

int wordIn(std::span<const AttributeWord> words, const QString &text)
{
    for (size_t i = 0; i < words.size(); ++i) {
        if (text == latin1(words[i].word))
            return int(i);
    }
    return -1;
}

QString elementName(AttributeElement element)
{
    for (const ElementWords &words : elementWords()) {
        if (words.element == element)
            return latin1(words.name);
    }
    return {};
}

QString typeName(AttributeType type)
{
    switch (type) {
    case AttributeType::Number:
        return u"number"_s;
    case AttributeType::Integer:
        return u"integer"_s;
    case AttributeType::Inches:
        return u"size"_s;
    case AttributeType::NumberPair:
        return u"pair of numbers"_s;
    case AttributeType::InchPair:
        return u"pair of sizes"_s;
    case AttributeType::Color:
        return u"colour or gradient"_s;
    case AttributeType::Choice:
        return u"choice"_s;
    case AttributeType::Words:
        return u"words"_s;
    case AttributeType::Text:
        return u"text"_s;
    }
    return {};
}

QString lookupName(AttributeLookup lookup, AttributeElement element)
{
    if (lookup == AttributeLookup::OwnOrNodeDefault)
        return u"own or node default"_s;
    if (lookup == AttributeLookup::Own || element == AttributeElement::Root)
        return u"own"_s;
    return element == AttributeElement::Cluster ? u"inherited"_s : u"default of its kind"_s;
}

} // namespace ORR::Graph
