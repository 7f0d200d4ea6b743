#pragma once

#include <QByteArrayView>
#include <QString>

namespace ORR::Companion {

// A text of the input within a sentence: between single quotes, and of a long one the beginning.
QString quotedText(const QString &text);
// The same of UTF-8 bytes, of whatever length.
QString quotedText(QByteArrayView utf8);

} // namespace ORR::Companion
