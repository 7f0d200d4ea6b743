#pragma once

#include "companion/findings/terminal_text.h"

namespace ORR::Companion {

// A name for a message. It may hold a line feed, which would begin a message of its own.
inline QByteArray quotedName(QByteArrayView name)
{
    return '\'' + terminalText(name) + '\'';
}

} // namespace ORR::Companion
