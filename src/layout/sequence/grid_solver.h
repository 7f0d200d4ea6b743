#pragma once

#include <QList>

namespace ORR::Graph::Layout {

// What one object asks of one axis of the grid.
struct GridClaim
{
    int index; // the row or column that it stands on
    int offset; // from the anchor of the index to where it begins
    int size;
    bool spans; // whether it lies across several bands
};

// The positions of one axis of the grid: the anchor of each of the `count` rows (or columns) and,
// as one more entry, the extent of the page. Every index has a band as wide as its objects reach
// from the anchor, and neighbouring bands keep a gap of 5, also where a band is empty.
//
// An object that spans the axis does not widen its band. What it claims before the anchor has to
// fit between the band and the one before; what it claims beyond the band is carried into the next
// gap, where it competes with what the next objects claim and does not add to it.
//
// Objects on an index outside 0 to count - 1 do not count. Positions saturate.
QList<int> solveGrid(int count, const QList<GridClaim> &claims);

} // namespace ORR::Graph::Layout
