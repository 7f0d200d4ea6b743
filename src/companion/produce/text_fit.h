#pragma once

#include <QString>

namespace ORR::Companion {

// The font of the drawings that are made here.
inline constexpr const char *drawnFont = "Arial";

// The width of a line of text in that font, in points.
double lineWidth(const QString &text, int fontSize);

// The text, or what of its beginning and its end is no wider.
QString elidedLine(const QString &text, int fontSize, double width);

} // namespace ORR::Companion
