#pragma once

#include "graph/numbers.h"

#include <QString>
#include <QStringView>

namespace ORR::Graph {

// The typed readings of attribute texts. None of them fails: what does not parse is 0.

inline constexpr double pointsPerInch = 72.0;

// A number as it stands. Layouts read their positions back through this, many times a node, so the
// plain decimals that they write are read here: up to 15 digits and 10^22 are exact as doubles, and
// one division of two exact numbers gives the double nearest to the decimal, as any other reader.
inline double numberFrom(QStringView text)
{
    constexpr qsizetype mostDigits = 15;
    constexpr double powers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6, 1e7,
                                 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14};
    const bool negative = text.startsWith(u'-');
    const QStringView plain = text.sliced(negative ? 1 : 0);
    qint64 digits = 0;
    qsizetype point = -1;
    bool isPlain = !plain.isEmpty() && plain.size() <= mostDigits;
    for (qsizetype i = 0; isPlain && i < plain.size(); ++i) {
        const char16_t c = plain[i].unicode();
        if (c >= u'0' && c <= u'9')
            digits = digits * 10 + (c - u'0');
        else if (c == u'.' && point < 0 && i > 0 && i + 1 < plain.size())
            point = i;
        else
            isPlain = false;
    }
    if (!isPlain)
        return text.toDouble();
    const double value = double(digits) / powers[point < 0 ? 0 : plain.size() - 1 - point];
    return negative ? -value : value;
}

// A decimal integer; a text with a fraction is none and reads 0.
inline int integerFrom(const QString &text)
{
    return text.toInt();
}

// A size given in inches, in points.
inline double pointsFromInches(QStringView text)
{
    return numberFrom(text) * pointsPerInch;
}

// The two ends of a list of numbers separated by commas, empty parts counted. A single number is
// both; what stands between is ignored.
struct NumberPair
{
    double first = 0.0;
    double last = 0.0;
};

inline NumberPair numberPairFrom(const QString &text)
{
    const QStringView list(text);
    const qsizetype firstComma = list.indexOf(u',');
    const qsizetype lastComma = list.lastIndexOf(u',');
    const QStringView first = firstComma < 0 ? list : list.first(firstComma);
    return {numberFrom(first), numberFrom(list.mid(lastComma + 1))};
}

// The same for sizes given in inches, in points.
inline NumberPair pointPairFromInches(const QString &text)
{
    const NumberPair inches = numberPairFrom(text);
    return {inches.first * pointsPerInch, inches.last * pointsPerInch};
}

} // namespace ORR::Graph
