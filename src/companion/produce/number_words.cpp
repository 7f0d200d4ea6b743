#include "companion/produce/number_words.h"

#include "graph/decimal.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ORR::Companion {

using namespace Qt::StringLiterals;

namespace {

// From here on digits in a row tell less than an exponent.
constexpr double longestWritten = 1e15;

// A comma before each three digits of the whole part.
QString inThrees(QString digits)
{
    const qsizetype start = digits.startsWith(u'-') ? 1 : 0;
    const qsizetype point = digits.indexOf(u'.');
    for (qsizetype i = (point < 0 ? digits.size() : point) - 3; i > start; i -= 3)
        digits.insert(i, u',');
    return digits;
}

QString withoutTrailingZeros(QString digits)
{
    while (digits.endsWith(u'0'))
        digits.chop(1);
    if (digits.endsWith(u'.'))
        digits.chop(1);
    return digits;
}

// With at most so many decimals.
QString plainNumber(double value, int decimals)
{
    if (!(std::abs(value) < longestWritten))
        return Graph::numberText(value);
    const QString digits = QString::number(value, 'f', decimals);
    return inThrees(decimals > 0 ? withoutTrailingZeros(digits) : digits);
}

// One decimal below 10, where the second digit tells something.
QString oneOrTwoDigits(double value)
{
    return plainNumber(value, value < 9.95 ? 1 : 0);
}

QString bytesWords(double bytes)
{
    constexpr std::array units = {"kB"_L1, "MB"_L1, "GB"_L1, "TB"_L1, "PB"_L1, "EB"_L1};
    if (bytes < 999.5)
        return plainNumber(bytes, 0) + " B"_L1;
    double amount = bytes / 1000;
    size_t unit = 0;
    for (; amount >= 999.5 && unit + 1 < units.size(); amount /= 1000)
        ++unit;
    return oneOrTwoDigits(amount) + u' ' + units[unit];
}

// "3 min 20 s": the greater unit and what remains of it in the smaller one.
QString twoUnits(double amount, double perGreater, QLatin1StringView greater,
                 QLatin1StringView smaller)
{
    const double whole = std::floor(std::round(amount) / perGreater);
    const double rest = std::round(amount) - whole * perGreater;
    return plainNumber(whole, 0) + u' ' + greater
        + (rest > 0 ? u' ' + plainNumber(rest, 0) + u' ' + smaller : QString());
}

QString secondsWords(double seconds)
{
    if (seconds == 0)
        return u"0 s"_s;
    if (seconds < 0.0009995)
        return shortNumber(seconds * 1e6) + u" \u00b5s"_s;
    if (seconds < 0.9995)
        return shortNumber(seconds * 1e3) + " ms"_L1;
    if (seconds < 59.95)
        return plainNumber(seconds, 1) + " s"_L1;
    if (seconds < 3599.5)
        return twoUnits(seconds, 60, "min"_L1, "s"_L1);
    return twoUnits(seconds / 60, 60, "h"_L1, "min"_L1);
}

} // namespace

QString shortNumber(double value)
{
    const double size = std::abs(value);
    if (size == 0 || size < 0.0001)
        return Graph::numberText(value);
    const int digitsBefore = int(std::floor(std::log10(size))) + 1;
    return plainNumber(value, std::max(0, 3 - digitsBefore));
}

QString weightWords(double weight, TreeMeaning::Unit unit)
{
    switch (unit) {
    case TreeMeaning::Unit::Bytes:
        return bytesWords(weight);
    case TreeMeaning::Unit::Seconds:
        return secondsWords(weight);
    case TreeMeaning::Unit::Count:
        break;
    }
    return weight >= 100 || weight == std::floor(weight) ? plainNumber(weight, 0)
                                                         : shortNumber(weight);
}

QString weightWithName(double weight, const TreeMeaning &meaning)
{
    const QString words = weightWords(weight, meaning.unit);
    const bool isNamed = meaning.unit == TreeMeaning::Unit::Count && !meaning.weight.isEmpty();
    return isNamed ? words + u' ' + meaning.weight : words;
}

QString percentWords(double share)
{
    const double percent = share * 100;
    if (percent > 0 && percent < 0.05)
        return u"<0.1 %"_s;
    return plainNumber(percent, percent < 99.95 ? 1 : 0) + " %"_L1;
}

} // namespace ORR::Companion
