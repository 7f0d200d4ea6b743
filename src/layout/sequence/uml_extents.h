#pragma once

#include "layout/sequence/grid_solver.h"
#include "layout/sequence/uml_parts.h"

#include <QList>

// How the parts of a sequence diagram lie on their cells, once their labels are measured: what goes
// into the sums of object_extents.h and fragment_frame.h. Everything is in whole points.
namespace ORR::Graph::Layout {

// The size of a part, and how far its left and top edge lie from the anchor of its cell.
struct CellExtent
{
    int xOffset = 0;
    int yOffset = 0;
    int width = 0;
    int height = 0;
};

// An activation is 10 by 10 here, however long it lasts.
CellExtent nodeExtent(const UmlNode &node);

// `head` is the column of the edge's head, and `tail` the extent of its tail. Without a label an
// edge has no size, apart from a message within a column; a return keeps 10 free above its row.
//
// The label starts at the right edge of the tail, or ends at its left edge. Within one column that
// of a message stands on the right and that of a return on the left, and that is meant.
CellExtent edgeExtent(const UmlEdge &edge, int head, const CellExtent &tail);

// `offsetsWithin` are those of the fragments within that stand on the same column.
CellExtent fragmentExtent(const UmlFragment &fragment, const QList<int> &offsetsWithin);

// Those of all parts, by their places in the lists of the parts.
struct UmlExtents
{
    QList<CellExtent> fragments;
    QList<CellExtent> nodes;
    QList<CellExtent> edges;

    const CellExtent &of(UmlPart part) const;
};

UmlExtents extentsOf(const UmlParts &parts);

// What the parts ask of each axis of the grid. Fragments and edges span columns, apart from
// lifelines; nothing spans rows.
QList<GridClaim> columnClaims(const UmlParts &parts, const UmlExtents &extents);
QList<GridClaim> rowClaims(const UmlParts &parts, const UmlExtents &extents);

} // namespace ORR::Graph::Layout
