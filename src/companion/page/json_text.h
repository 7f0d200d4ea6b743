#pragma once

#include <QByteArray>
#include <QString>

namespace ORR::Companion {

// The text as a string of JSON (RFC 8259), with its quotes, from which readers get the very text
// back, lone surrogates too. It is safe within a script element of HTML: nothing in it can end one
// or begin a comment, since every "<" is escaped.
QByteArray jsonText(const QString &text);

} // namespace ORR::Companion
