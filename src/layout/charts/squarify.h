#pragma once

#include <QList>
#include <QRectF>

// Squarified treemaps: tiling a rectangle with rectangles of given areas that are as square as the
// method gets them. M. Bruls, K. Huizing, J. J. van Wijk: Squarified Treemaps, Proceedings of the
// Joint Eurographics and IEEE TCVG Symposium on Visualization, 2000.
//
// All operations work on the `count` values from index `start` on, which must exist; a count of -1
// means all the rest. Values are areas in the square unit of the rectangle; the method does best
// with values that fall. Any doubles are taken: a value that has no area of its own (zero,
// negative, infinite, not a number) gets a rectangle that is not valid.
namespace ORR::Graph::Layout {

// The whole tiling, a rectangle for each value: rows are laid along the shorter side of what is
// left (of two equal sides the left one), and a row takes further values as long as its worst ratio
// does not get worse. Linear in the number of values.
QList<QRectF> squarify(const QList<double> &values, const QRectF &rect, qsizetype start = 0,
                       qsizetype count = -1);

// The rectangles of one row, which fills the shorter side of `rect`. Without room, when `rect` is
// not valid, they are all default ones.
QList<QRectF> rowCells(const QList<double> &values, const QRectF &rect, qsizetype start = 0,
                       qsizetype count = -1);

// How far the worst of the row's valid rectangles is from a square: its longer side divided by its
// shorter one. 0 if there is none.
double worstRatio(const QList<double> &values, const QRectF &rect, qsizetype start = 0,
                  qsizetype count = -1);

// What is left of `rect` beside the row.
QRectF remainingRect(const QList<double> &values, const QRectF &rect, qsizetype start = 0,
                     qsizetype count = -1);

} // namespace ORR::Graph::Layout
