#pragma once

#include "graph/decimal.h"
#include "graph/numbers.h"

#include <QString>
#include <QStringView>

#include <optional>

namespace ORR::Graph {

// The typed readings of attribute texts. None of them fails: what does not parse is 0. A number as
// it stands is read by `numberFrom`.

// A decimal integer; a text with a fraction is none and reads 0.
inline int integerFrom(const QString &text)
{
    return text.toInt();
}

// The same where 0 and no integer are two things: none if the text is none.
inline std::optional<int> givenInteger(const QString &text)
{
    bool isInteger = false;
    const int number = text.toInt(&isInteger);
    return isInteger ? std::optional(number) : std::nullopt;
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
