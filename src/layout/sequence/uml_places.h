#pragma once

#include "layout/sequence/uml_extents.h"
#include "layout/sequence/uml_parts.h"

#include <QList>
#include <QPoint>
#include <QRect>

// Where the parts of a sequence diagram lie on the page, once the grid is solved.
namespace ORR::Graph::Layout {

// The anchors of the columns and the rows, each list with the extent of the page behind them. A row
// or column beyond the lists reads 0.
struct GridAnchors
{
    QList<int> columns;
    QList<int> rows;

    int x(int col) const { return columns.value(col); }
    int y(int row) const { return rows.value(row); }
    QPoint at(UmlCell cell) const { return {x(cell.col), y(cell.row)}; }
};

QRect boundsAt(UmlCell cell, const CellExtent &extent, const GridAnchors &anchors);

// That of an activation reaches down to its end: 0 high without a return, and of a negative height
// if that comes before the call.
QRect nodeBounds(const UmlNode &node, const CellExtent &extent, const GridAnchors &anchors);

// The title tag of a fragment, and below each other the rectangles of its sections, whose union is
// its frame.
struct FragmentPlace
{
    QRect tag;
    QList<QRect> sections;
};

FragmentPlace fragmentPlace(const UmlFragment &fragment, const CellExtent &extent,
                            const UmlExtents &extents, const GridAnchors &anchors);

} // namespace ORR::Graph::Layout
