#pragma once

#include <QString>

namespace ORR::Graph {

// A text of the input as a message shows it: control characters, which a terminal would obey,
// written out as "\x1b". All other characters stay.
QString messageText(const QString &text);

// The same for a whole message: the line feeds, which end its lines, stay too.
QString printableMessage(const QString &message);

} // namespace ORR::Graph
