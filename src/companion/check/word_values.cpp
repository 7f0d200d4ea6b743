#include "companion/check/word_values.h"

#include "companion/check/attribute_uses.h"
#include "companion/check/rules.h"
#include "companion/check/value_parts.h"
#include "companion/findings/nearest_word.h"
#include "companion/findings/quoted_text.h"
#include "layout/attribute_tables.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

using namespace Graph;

namespace {

// Words that say what holds anyway, where the table has none for it.
struct DefaultWord
{
    KnownAttribute name;
    QLatin1StringView word;
};
const DefaultWord defaultWords[] = {
    {"rankdir"_attribute, "TB"_L1},     {"rankdir"_attribute, "LR"_L1},
    {"crossing"_attribute, "true"_L1},  {"sort"_attribute, "false"_L1},
    {"peripheries"_attribute, "1"_L1},  {"slash"_attribute, "false"_L1},
    {"expander"_attribute, "false"_L1}, {"visible"_attribute, "false"_L1},
    {"style"_attribute, "filled"_L1},   {"style"_attribute, "solid"_L1},
};

bool saysDefault(const AttributeRow &row, const QString &word)
{
    if (word == latin1(row.byDefault))
        return true;
    return std::any_of(std::begin(defaultWords), std::end(defaultWords),
                       [&](const DefaultWord &known) {
                           return known.name.text() == row.name.text() && known.word == word;
                       });
}

// The words that a style may have, whichever table they are in: what one engine draws is known to
// the others, and left out.
QStringList wordsOf(const AttributeRow &row)
{
    QStringList words;
    const auto add = [&](const AttributeRow &other) {
        for (const AttributeWord &word : other.words)
            words += latin1(word.word);
    };
    if (row.type == AttributeType::Choice) {
        add(row);
        return words;
    }
    for (const AttributeTable *table : Layout::attributeTables()) {
        for (const AttributeRow *other : table->rows) {
            if (other->type == AttributeType::Words && other->name.text() == row.name.text())
                add(*other);
        }
    }
    words.removeDuplicates();
    return words;
}

// The first word of a style that holds none of the words; null if there is none.
QString firstBadWord(const AttributeRow &row, const QString &value)
{
    const QStringList known = wordsOf(row);
    return firstBadPart(value, u", \t\n", [&](const QString &word) {
        return word.isEmpty() || saysDefault(row, word)
            || std::any_of(known.begin(), known.end(),
                           [&](const QString &one) { return word.contains(one); });
    });
}

Finding unknownWord(const AttributeRow &row, const QString &word, const QString &effect)
{
    return {
        &Rules::unknownWord,
        "unknown word %1 of %2 %3"_L1.arg(quotedText(word), quotedText(row.name.text()), effect),
        wordSuggestion(word, wordsOf(row))};
}

} // namespace

bool isWordMeant(const AttributeRow &row, const QString &value)
{
    if (row.type == AttributeType::Words)
        return firstBadWord(row, value).isNull();
    return value.isEmpty() || wordIn(row.words, value) >= 0 || saysDefault(row, value);
}

Finding wordFinding(const AttributeRow &row, const QString &value)
{
    if (row.type == AttributeType::Words)
        return unknownWord(row, firstBadWord(row, value), u"has no effect"_s);
    return unknownWord(row, value,
                       "counts as the default (%1)"_L1.arg(QString(latin1(row.byDefault))));
}

QString wordSuggestion(const QString &word, const QStringList &words)
{
    const QString suggestion = didYouMean(word, words);
    if (!suggestion.isEmpty())
        return suggestion;
    return words.size() == 1 ? "the only word is "_L1 + quotedText(words.first())
                             : "the words are "_L1 + listed(words);
}

} // namespace ORR::Companion
