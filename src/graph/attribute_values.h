#pragma once

#include "graph/numbers.h"

#include <QString>
#include <QStringView>

namespace ORR::Graph {

// The typed readings of attribute texts. None of them fails: what does not parse is 0.

inline constexpr double pointsPerInch = 72.0;

// A number as it stands.
inline double numberFrom(const QString &text)
{
    return text.toDouble();
}

// A decimal integer; a text with a fraction is none and reads 0.
inline int integerFrom(const QString &text)
{
    return text.toInt();
}

// A size given in inches, in points.
inline double pointsFromInches(const QString &text)
{
    return text.toDouble() * pointsPerInch;
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
    return {first.toDouble(), list.mid(lastComma + 1).toDouble()};
}

// The same for sizes given in inches, in points.
inline NumberPair pointPairFromInches(const QString &text)
{
    const NumberPair inches = numberPairFrom(text);
    return {inches.first * pointsPerInch, inches.last * pointsPerInch};
}

} // namespace ORR::Graph
