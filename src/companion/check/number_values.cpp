#include "companion/check/number_values.h"

#include "companion/check/rules.h"
#include "companion/findings/quoted_text.h"
#include "graph/decimal.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

using namespace Graph;

namespace {

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

Finding decimalFinding(const AttributeRow &row, const QString &value)
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

} // namespace

bool isNumberMeant(const AttributeRow &row, const QString &value)
{
    switch (row.type) {
    case AttributeType::Integer:
        return isInteger(value);
    case AttributeType::NumberPair:
    case AttributeType::InchPair:
        return isNumber(firstOf(value)) && isNumber(lastOf(value));
    default:
        return isNumber(value);
    }
}

Finding numberFinding(const AttributeRow &row, const QString &value)
{
    switch (row.type) {
    case AttributeType::Integer:
        return integerFinding(row, value);
    case AttributeType::NumberPair:
    case AttributeType::InchPair:
        return pairFinding(row, value);
    default:
        return decimalFinding(row, value);
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

} // namespace ORR::Companion
