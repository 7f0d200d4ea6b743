#pragma once

#include <QList>
#include <QSizeF>

namespace ORR::Graph::Layout {

// How the subgraphs of a declaration graph stand, in the order of the words of `grid`: every row
// by itself, every column by itself, or in a table whose lines are aligned.
enum class GridMode { ByRows, ByColumns, Table };

// The room between the cells of a grid, in points.
struct GridSpacing
{
    double rowGap = 0.0;
    double columnGap = 0.0;
    double extra = 0.0; // once, behind the first column
};

// The cells of a grid: their sizes, each under the numbers of the lines that it is measured in.
// Where one axis runs freely, both are the address on the other one.
struct MeasuredCell
{
    int row;
    int column;
    QSizeF size;
};

// What a grid needs; 0 by 0, and the extra room, without cells.
QSizeF gridSize(const QList<MeasuredCell> &cells, GridMode mode, const GridSpacing &spacing);

// A stack of nodes.
struct StackedNode
{
    QSizeF size;
    double offset; // to the right
};

// Between the last node of a stack and the grid below it, in points.
inline constexpr double stackToGrid = 4.0;

// What a grid needs together with the stack of nodes above it, of which there is at least one.
QSizeF sizeWithStack(QSizeF grid, bool hasCells, const QList<StackedNode> &stack, double nodeSep);

} // namespace ORR::Graph::Layout
