#pragma once

#include <QByteArray>
#include <QSizeF>
#include <QString>

namespace ORR::Companion {

// The size of the page on which an engine draws a text, in points; invalid if it can't be drawn.
// The drawing is made for it, so a picture tries a size few times.
QSizeF drawnSize(const QByteArray &text, const QString &engine);

} // namespace ORR::Companion
