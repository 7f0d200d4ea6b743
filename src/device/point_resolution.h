#pragma once

#include <QFont>
#include <QImage>

// The resolution of every drawing: a unit is a point, 72 of them an inch, and so is a pixel of a
// text that is measured or painted. The screen, which the toolkit takes where it is told nothing,
// has no say in it.
namespace ORR::Graph {

// Gives the image this resolution, or one with so many pixels for a point: painted text has the
// size that it was measured with, and a saved picture says so.
void setPointResolution(QImage *image, double pixels = 1.0);

// What text is measured for where there is no image to paint on. Not owned; lives to the end of
// the process, and is never painted on.
QPaintDevice *pointDevice();

// The font with its point size taken for that many units.
QFont atPointResolution(const QFont &font);

} // namespace ORR::Graph
