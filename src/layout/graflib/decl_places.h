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
