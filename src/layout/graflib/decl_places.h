#pragma once

#include "layout/graflib/decl_sizes.h"

#include <QChar>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>

namespace ORR::Graph::Layout {

// Where the content of a graph stands in its place.
struct ContentPosition
{
    QChar vertical = u't'; // b, m, or the top
    QChar horizontal = u'l'; // c, r, or the left
};
ContentPosition contentPosition(const QString &text);

// The top left corner of content of that size in a place.
QPointF contentCorner(const QRectF &place, QSizeF size, ContentPosition position);

// The left side of a node of a stack that stands at `left`.
double nodeLeft(const QRectF &place, double left, double width, ContentPosition position);

// What is left of the place of a graph within its margin.
QRectF placeWithinMargin(const QRectF &given, double margin);

// Where the nodes of a stack stand, in their order, and where the grid below them starts.
struct StackPlaces
{
    QList<QPointF> nodes; // the top left corners
    QPointF gridCorner;
};

// Below each other from `corner` on, `nodeSep` apart. The grid starts right there if there are
// none.
StackPlaces stackPlaces(const QList<StackedNode> &stack, const QRectF &place, QPointF corner,
                        ContentPosition position, double nodeSep);

// A cell of a grid: its address and its size.
struct AddressedCell
{
    int row;
    int column;
    QSizeF size;
};

// The places of the cells, in their order. The grid starts at `corner` and fills the place from
// there to its right and lower sides.
QList<QRectF> cellPlaces(const QList<AddressedCell> &cells, QPointF corner, const QRectF &place,
                         GridMode mode, const GridSpacing &spacing);

} // namespace ORR::Graph::Layout
