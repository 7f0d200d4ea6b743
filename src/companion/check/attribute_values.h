#pragma once

#include "attributes/attribute_row.h"
#include "companion/findings/finding.h"

#include <QString>

namespace ORR::Companion {

// Whether a value is one that the attribute means, by the same readers as those of the engines.
// Nothing that a type takes is a fault, however odd it is: blanks around a number, a colour of no
// opacity, an empty text where a word, a colour or a style could stand.
bool isMeant(const Graph::AttributeRow &row, const QString &value);

// Whether a value that is meant makes sense: numbers are finite, and sizes are at least 0.
bool isSensible(const Graph::AttributeRow &row, const QString &value);

// What there is to say of a value that is not meant: the rule, what the value is taken for, and
// what to write. Its place is left open.
Finding valueFinding(const Graph::AttributeRow &row, const QString &value);

// The same of a value that makes no sense.
Finding senselessFinding(const Graph::AttributeRow &row, const QString &value);

// What there is to say of a colour that is none, wherever it stands: `where` says it, with a blank
// ahead.
Finding unknownColor(const QString &color, const QString &where);

// Which of the words is meant, or what they are.
QString wordSuggestion(const QString &word, const QStringList &words);

} // namespace ORR::Companion
