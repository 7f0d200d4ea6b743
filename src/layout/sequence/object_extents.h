#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

// How the things on a sequence diagram lie on their cells: sizes, offsets from the anchor point of
// the cell, and rectangles on the page. Everything is in whole points, rectangles are inclusive
// ones (right = left + width - 1), halves are truncated toward zero, and sums that no int holds
// saturate.
namespace ORR::Graph::Layout {

// The room that a label keeps on each of its sides.
inline constexpr int labelPadding = 3;

// Of the dot where a message comes from out of nowhere.
inline constexpr int dotRadius = 3;

// Width and height of the bar of an activation, as the grid is solved with it.
inline constexpr int activationSize = 10;

// Where a thing lies as seen from its anchor.
enum class CellAlign { Before = 0, Centre = 1, After = 2 };

// A rectangle whose coordinates saturate.
QRect gridRect(qint64 left, qint64 top, qint64 width, qint64 height);

// The size of a label with its padding. Saturates.
QSize paddedSize(QSize text);

// The offset of a thing of that width or height.
int alignedOffset(int size, CellAlign align);

// The offset of an activation to the left, at that depth of nesting.
int activationOffset(int nesting);

// The bar of an activation from its anchor down to `end`.
QRect activationBar(QPoint anchor, int end, int nesting);

// The ends of a lifeline on that column: between the two boxes, of which the first is the upper one
// if the line runs downward.
QList<QPoint> lifeLine(const QRect &from, const QRect &to, int x, bool downward);

// The width or height of a message whose label has that one.
int messageSize(int ofLabel, bool withinColumn);

// The offset of a label that starts at the right side of a box, or ends at its left one. The box
// has that offset itself.
int offsetBeside(int boxOffset, int boxWidth, bool right, int labelWidth);

// The offset of a return's label to the top, whose height is 0 without one.
int returnOffset(bool labelled, int labelHeight);

} // namespace ORR::Graph::Layout
