#pragma once

#include <QString>

namespace ORR::Companion {

// A text of the input within a sentence: between single quotes, and of a long one the beginning.
QString quotedText(const QString &text);

} // namespace ORR::Companion
