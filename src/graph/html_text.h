#pragma once

#include <QString>

// The text within HTML, for formats that show it plain.
namespace ORR::Graph {

// The text without its tags. A "<br>" in small letters becomes a backslash and an n, not a line
// feed.
QString withoutTags(const QString &html);

// The text with "&amp;", "&lt;", "&gt;" and "&quot;" resolved. The first comes first: what it forms
// with the characters behind it is resolved as well.
QString withResolvedEntities(const QString &text);

} // namespace ORR::Graph
