#pragma once

#include "attributes/attribute_row.h"
#include "companion/findings/finding.h"

#include <QString>

// The values of rows of colours, and colours wherever they stand.
namespace ORR::Companion {

// Whether the value is a colour, several of them where the row takes a gradient, or empty.
bool isColorMeant(const Graph::AttributeRow &row, const QString &value);

// What there is to say of a value that is not: what is painted instead, and what may be meant. Its
// place is left open.
Finding colorFinding(const Graph::AttributeRow &row, const QString &value);

// What there is to say of a colour that is none, wherever it stands: `where` says it, with a blank
// ahead.
Finding unknownColor(const QString &color, const QString &where);

} // namespace ORR::Companion
