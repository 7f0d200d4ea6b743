#pragma once

#include "device/device.h"

#include <QList>
#include <QPoint>
#include <QString>

// The pieces of which the text of an xdot op is made. y runs upward there, so all of them take the
// height of the page.
namespace ORR::Graph {

// "x y" of one point; of several, all with a blank between.
QString xdotPoint(QPoint point, int pageHeight);
QString xdotPoints(const QList<QPoint> &points, int pageHeight);

// A string as a field: its length, counted in the bytes of its UTF-8 form as the replay counts
// them, " -" and the string. Zero characters, which no graph can hold, are left out.
QString xdotCounted(const QString &text);

// The ops that set pen and fill ahead of a shape; each may be null. Those that set a colour bring a
// blank of their own, so that two blanks stand behind them.
QString xdotPaint(const Device::Pen *pen, const Device::Color *fill, int pageHeight);

// What names a fill: the colour string of a solid one, "[x0 y0 x1 y1 stops]" for a linear gradient,
// "(x0 y0 r0 x1 y1 r1 stops)" for a radial one. A gradient without stops is a fault of the caller
// and shows as the places that were never filled.
QString xdotFill(const Device::Color *fill, int pageHeight);

} // namespace ORR::Graph
