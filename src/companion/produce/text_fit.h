#pragma once

#include <QString>
#include <qnamespace.h>

namespace ORR::Companion {

// The font of the drawings that are made here.
inline constexpr const char *drawnFont = "Arial";

// The width of a line of text in that font, in points.
double lineWidth(const QString &text, int fontSize);

// The text, or what of it is no wider, with an ellipsis.
QString elidedLine(const QString &text, int fontSize, double width,
                   Qt::TextElideMode mode = Qt::ElideMiddle);

} // namespace ORR::Companion
