#pragma once

#include <QByteArray>
#include <QString>

namespace ORR::Companion {

// The page in which a text is edited, and its drawing and findings are seen: one HTML document that
// asks the server that it came from, and nobody else, for all that changes.
QByteArray shellDocument(const QString &title);

// Its Content-Security-Policy, as it stands in the document. It may run its own script, show pages
// of the same server in frames and pictures that it has itself.
QByteArray shellPolicy();

} // namespace ORR::Companion
