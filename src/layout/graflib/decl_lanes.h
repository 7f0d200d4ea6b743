#pragma once

#include "layout/graflib/polyline_text.h"

#include <QList>

#include <utility>

namespace ORR::Graph::Layout {

// The cell of a graph in its parent's grid: row, column.
using CellAddress = std::pair<int, int>;

// By how many points edges are pushed apart that start and end in cells at these addresses, one
// offset for each. Where two cells have one address, the later one counts and the other has none.
QList<double> laneOffsets(const QList<CellAddress> &cells);

// What an edge of a declaration graph ends at.
struct EdgeAnchor
{
    double x = 0.0; // its left side
    double y = 0.0;
    double width = 0.0;
};

// The four points of an edge: out to one side of the tail, across at a middle x, and in to the
// head. It looks for no way around anything. Offsets: those of the cells of both ends.
struct DeclEdge
{
    FourNumbers x;
    FourNumbers y;
};
DeclEdge declEdge(const EdgeAnchor &tail, double tailOffset, const EdgeAnchor &head,
                  double headOffset);

} // namespace ORR::Graph::Layout
