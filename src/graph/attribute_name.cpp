#include "graph/attribute_name.h"

#include <array>

namespace ORR::Graph {

namespace {

using Spellings = std::array<AttributeSpelling, std::size(attributeVocabulary)>;

Spellings spellVocabulary()
{
    Spellings spellings;
    for (size_t i = 0; i < spellings.size(); ++i) {
        const std::string_view name = attributeVocabulary[i];
        spellings[i].text = QString::fromLatin1(name.data(), qsizetype(name.size()));
    }
    return spellings;
}

const Spellings vocabulary = spellVocabulary();

// Where a name stands in the vocabulary; null if it does not.
const AttributeSpelling *knownSpelling(const QString &text)
{
    const auto found = std::lower_bound(
        vocabulary.begin(), vocabulary.end(), text,
        [](const AttributeSpelling &known, const QString &sought) { return known.text < sought; });
    return found != vocabulary.end() && found->text == text ? &*found : nullptr;
}

} // namespace

const AttributeSpelling *const knownSpellings = vocabulary.data();

AttributeName::AttributeName(const QString &text) : spelling(knownSpelling(text))
{
    if (!spelling)
        spelling = new AttributeSpelling{text, 1};
}

} // namespace ORR::Graph
