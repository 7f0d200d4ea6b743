#pragma once

#include "attributes/attribute_row.h"
#include "companion/findings/finding.h"

#include <QString>
#include <QStringList>

// The values of rows of words: choices of one, and texts that hold several.
namespace ORR::Companion {

// Whether the value is empty, or a word of the row or one that says what holds anyway; of a text
// that holds several, whether each of them holds such a word.
bool isWordMeant(const Graph::AttributeRow &row, const QString &value);

// What there is to say of a value that is not: what the first bad word counts as, and what the
// words are. Its place is left open.
Finding wordFinding(const Graph::AttributeRow &row, const QString &value);

// Which of the words is meant, or what they are.
QString wordSuggestion(const QString &word, const QStringList &words);

} // namespace ORR::Companion
