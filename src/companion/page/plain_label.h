#pragma once

#include <QString>

namespace ORR::Companion {

// A label as one reads it: with line feeds where its escapes \n, \l and \r end a line, or without
// its markup.
QString plainLabel(const QString &label, bool isHtml);

} // namespace ORR::Companion
