#include "companion/check/attribute_values.h"

#include "companion/check/attribute_uses.h"
#include "companion/check/rules.h"
#include "companion/findings/nearest_word.h"
#include "companion/findings/quoted_text.h"
#include "device/color_value.h"
#include "graph/attribute_values.h"
#include "layout/attribute_tables.h"

#include <algorithm>
#include <cmath>
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

bool isNumber(QStringView text)
{
    bool ok = false;
    static_cast<void>(text.toDouble(&ok));
    return ok;
}

bool isInteger(const QString &text)
{
    bool ok = false;
    text.toInt(&ok);
    return ok;
}

// The two ends of a comma list, as `numberPairFrom` takes them.
QStringView firstOf(const QString &list)
{
    const qsizetype comma = list.indexOf(u',');
    return QStringView(list).first(comma < 0 ? list.size() : comma);
}

QStringView lastOf(const QString &list)
{
    return QStringView(list).sliced(list.lastIndexOf(u',') + 1);
}

// What is 0 at least, by whatever engine. A gap or a margin may well be below.
bool isSize(const AttributeRow &row)
{
    constexpr std::string_view sizes[] = {"area", "fontsize", "height", "nesting", "penwidth",
                                          "r0",   "r1",       "radius", "rstep",   "width"};
    return std::any_of(std::begin(sizes), std::end(sizes),
                       [&](std::string_view name) { return row.name.text() == latin1(name); });
}

// Why a number makes no sense; empty if it does.
QString senselessness(const AttributeRow &row, QStringView text)
{
    const double number = text.toDouble();
    if (std::isnan(number))
        return u"it is no number at all"_s;
    if (std::isinf(number))
        return u"it is infinite"_s;
    return number < 0.0 && isSize(row) ? u"it is below 0"_s : QString();
}

// The numbers of a value that has a number type; a text has none.
QList<QStringView> numbersOf(const AttributeRow &row, const QString &value)
{
    switch (row.type) {
    case AttributeType::Number:
    case AttributeType::Integer:
    case AttributeType::Inches:
        return {value};
    case AttributeType::NumberPair:
    case AttributeType::InchPair:
        return {firstOf(value), lastOf(value)};
    default:
        return {};
    }
}

// Only fills run through several colours.
bool mayBeGradient(const AttributeRow &row)
{
    return row.name.text() == "fillcolor"_L1;
}

// The first part between two of the separators that is not meant; null if all of them are. A value
// may have as many parts as bytes, so they are not collected.
template <typename IsMeant>
QString firstBadPart(const QString &value, QStringView separators, const IsMeant &isMeantPart)
{
    qsizetype start = 0;
    for (qsizetype i = 0; i <= value.size(); ++i) {
        if (i < value.size() && !separators.contains(value.at(i)))
            continue;
        const QString part = value.sliced(start, i - start);
        if (!isMeantPart(part))
            return part.isNull() ? u""_s : part;
        start = i + 1;
    }
    return {};
}

QString firstBadColor(const QString &value)
{
    return firstBadPart(value, u";",
                        [](const QString &color) { return ColorValue(color).isValid(); });
}

bool isColor(const AttributeRow &row, const QString &value)
{
    if (value.isEmpty() || ColorValue(value).isValid())
        return true;
    return mayBeGradient(row) && firstBadColor(value).isNull();
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

QString nameOf(const AttributeRow &row)
{
    return quotedText(row.name.text());
}

// The number at the beginning of a text, with a decimal point for a comma; empty if there is none.
QString numberAhead(const QString &text)
{
    QString plain = text.trimmed();
    if (plain.count(u',') == 1)
        plain.replace(u',', u'.');
    for (qsizetype length = std::min<qsizetype>(plain.size(), longestNumber); length > 0;
         --length) {
        const QString ahead = plain.first(length);
        if (ahead.back().isDigit() && isNumber(ahead))
            return ahead;
    }
    return {};
}

QString meantInstead(const QString &ahead)
{
    return ahead.isEmpty() ? QString() : u"did you mean '%1'?"_s.arg(ahead);
}

// "0", or "infinite"
QString takenFor(QStringView text)
{
    const double number = numberFrom(text);
    return std::isinf(number) ? u"infinite"_s : numberText(number);
}

Finding numberFinding(const AttributeRow &row, const QString &value)
{
    const QString taken = takenFor(value);
    return {
        &Rules::badValue,
        "%1 is no number: %2 counts as %3"_L1.arg(quotedText(value), nameOf(row), taken),
        taken == "0"_L1 ? meantInstead(numberAhead(value)) : u"it is too large"_s,
    };
}

Finding integerFinding(const AttributeRow &row, const QString &value)
{
    const QString whole = numberAhead(value).section(u'.', 0, 0);
    const bool isTooLarge = whole == value.trimmed();
    return {
        &Rules::badValue,
        "%1 is no whole number: %2 counts as 0"_L1.arg(quotedText(value), nameOf(row)),
        isTooLarge             ? u"it is too large"_s
            : isInteger(whole) ? meantInstead(whole)
                               : QString(),
    };
}

Finding pairFinding(const AttributeRow &row, const QString &value)
{
    const QString bad = (isNumber(firstOf(value)) ? lastOf(value) : firstOf(value)).toString();
    return {&Rules::badValue,
            "%1 is no number: it counts as %2 in %3"_L1.arg(quotedText(bad), takenFor(bad),
                                                            nameOf(row)),
            u"write one number, or two with a comma between"_s};
}

// The six or eight digits that a colour without them may have meant.
QString digitsMeant(const QString &color)
{
    QString digits = color.startsWith(u'#') ? color.sliced(1) : color;
    if (digits.size() == 3 || digits.size() == 4) {
        QString doubled;
        for (const QChar digit : std::as_const(digits))
            doubled += QString(2, digit);
        digits = doubled;
    }
    const QString meant = u'#' + digits;
    return ColorValue(meant).isValid() ? meant : QString();
}

QString colorSuggestion(const QString &color)
{
    if (const QString digits = color.size() <= longestNumber ? digitsMeant(color) : QString();
        !digits.isEmpty())
        return u"did you mean '%1'?"_s.arg(digits);
    if (ColorValue(color.trimmed()).isValid())
        return u"did you mean '%1'?"_s.arg(color.trimmed());
    if (const QString name = didYouMean(color, colorNames()); !name.isEmpty())
        return name;
    if (color.startsWith(u'#'))
        return u"write '#rrggbb' or '#rrggbbaa'"_s;
    return "write '#rrggbb', '#rrggbbaa' or one of "_L1 + colorNames().join(", "_L1);
}

// A bad digit leaves the channels ahead of it.
QString paintedInstead(const QString &color)
{
    const QString painted = ColorValue(color).toString();
    return painted == "#000000"_L1 ? u"black"_s : quotedText(painted);
}

Finding colorFinding(const AttributeRow &row, const QString &value)
{
    if (!mayBeGradient(row) && value.contains(u';'))
        return {&Rules::unknownColor,
                "%1 can't be a gradient: %2 becomes black"_L1.arg(nameOf(row), quotedText(value)),
                u"write one colour"_s};
    return unknownColor(firstBadColor(value), " of "_L1 + nameOf(row));
}

Finding wordFinding(const AttributeRow &row, const QString &word, const QString &effect)
{
    return {&Rules::unknownWord,
            "unknown word %1 of %2 %3"_L1.arg(quotedText(word), nameOf(row), effect),
            wordSuggestion(word, wordsOf(row))};
}

Finding choiceFinding(const AttributeRow &row, const QString &value)
{
    return wordFinding(row, value,
                       "counts as the default (%1)"_L1.arg(QString(latin1(row.byDefault))));
}

} // namespace

bool isMeant(const AttributeRow &row, const QString &value)
{
    switch (row.type) {
    case AttributeType::Number:
    case AttributeType::Inches:
        return isNumber(value);
    case AttributeType::Integer:
        return isInteger(value);
    case AttributeType::NumberPair:
    case AttributeType::InchPair:
        return isNumber(firstOf(value)) && isNumber(lastOf(value));
    case AttributeType::Color:
        return isColor(row, value);
    case AttributeType::Choice:
        return value.isEmpty() || wordIn(row.words, value) >= 0 || saysDefault(row, value);
    case AttributeType::Words:
        return firstBadWord(row, value).isNull();
    case AttributeType::Text:
        return true;
    }
    return true;
}

Finding valueFinding(const AttributeRow &row, const QString &value)
{
    switch (row.type) {
    case AttributeType::Number:
    case AttributeType::Inches:
        return numberFinding(row, value);
    case AttributeType::Integer:
        return integerFinding(row, value);
    case AttributeType::NumberPair:
    case AttributeType::InchPair:
        return pairFinding(row, value);
    case AttributeType::Color:
        return colorFinding(row, value);
    case AttributeType::Choice:
        return choiceFinding(row, value);
    default:
        return wordFinding(row, firstBadWord(row, value), u"has no effect"_s);
    }
}

bool isSensible(const AttributeRow &row, const QString &value)
{
    const QList<QStringView> numbers = numbersOf(row, value);
    return std::all_of(numbers.begin(), numbers.end(),
                       [&](QStringView number) { return senselessness(row, number).isEmpty(); });
}

Finding senselessFinding(const AttributeRow &row, const QString &value)
{
    for (const QStringView number : numbersOf(row, value)) {
        const QString reason = senselessness(row, number);
        if (!reason.isEmpty())
            return {&Rules::senselessValue,
                    "%1 of %2 makes no sense: %3"_L1.arg(quotedText(number.toString()), nameOf(row),
                                                         reason)};
    }
    return {&Rules::senselessValue, {}};
}

Finding unknownColor(const QString &color, const QString &where)
{
    return {
        &Rules::unknownColor,
        "unknown colour %1%2 becomes %3"_L1.arg(quotedText(color), where, paintedInstead(color)),
        colorSuggestion(color)};
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
