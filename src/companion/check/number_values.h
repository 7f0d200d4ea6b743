#pragma once

#include "attributes/attribute_row.h"
#include "companion/findings/finding.h"

#include <QString>

// The values of rows of numbers: integers, sizes and pairs as well.
namespace ORR::Companion {

// Whether the value is read to its end, by the readers of the engines.
bool isNumberMeant(const Graph::AttributeRow &row, const QString &value);

// What there is to say of a value that is not: what it counts as, and what may be meant. Its place
// is left open.
Finding numberFinding(const Graph::AttributeRow &row, const QString &value);

// Whether a value that is read makes sense: numbers are finite, and sizes are at least 0. So does
// every value of a row of anything else.
bool isSensible(const Graph::AttributeRow &row, const QString &value);

// What there is to say of one that makes none.
Finding senselessFinding(const Graph::AttributeRow &row, const QString &value);

} // namespace ORR::Companion
