#pragma once

#include "attributes/attribute_row.h"
#include "companion/check/color_values.h"
#include "companion/check/number_values.h"
#include "companion/check/word_values.h"
#include "companion/findings/finding.h"

#include <QString>

// The values of attributes. Which type a row has decides the header that looks at them.
namespace ORR::Companion {

// Whether a value is one that the attribute means, by the same readers as those of the engines.
// Nothing that a type takes is a fault, however odd it is: blanks around a number, a colour of no
// opacity, an empty text where a word, a colour or a style could stand.
bool isMeant(const Graph::AttributeRow &row, const QString &value);

// What there is to say of a value that is not meant: the rule, what the value is taken for, and
// what to write. Its place is left open.
Finding valueFinding(const Graph::AttributeRow &row, const QString &value);

} // namespace ORR::Companion
