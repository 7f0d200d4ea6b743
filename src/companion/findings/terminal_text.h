#pragma once

#include <QByteArray>
#include <QByteArrayView>

// Texts of an input on a terminal.
namespace ORR::Companion {

// The bytes with what a terminal would obey, or could not show, written out: control characters and
// bytes that are no UTF-8 as "\x1b", the characters that turn the direction of a line as "\u202e".
QByteArray terminalText(QByteArrayView bytes);

// The same, except for tabs, which stay.
QByteArray terminalLine(QByteArrayView bytes);

// Blanks and tabs that take as many columns of a terminal as `terminalLine` of the bytes does.
QByteArray blanksFor(QByteArrayView bytes);

} // namespace ORR::Companion
