#pragma once

#include <QString>

namespace ORR::Graph {

// The text without the characters that XML 1.0 forbids in a document: most control characters,
// unpaired surrogates, U+FFFE and U+FFFF.
QString withoutForbiddenXml(const QString &text);

// A text of the input for use within an attribute value in double quotes: `&`, `<`, `>` and `"`
// escaped, forbidden characters left out.
QString xmlAttributeValue(const QString &text);

} // namespace ORR::Graph
