#pragma once

#include "layout/charts/chart_items.h"

#include <QList>
#include <QMarginsF>
#include <QRectF>

#include <optional>

namespace ORR::Graph::Layout {

// The cells of a treemap: what of each subgraph is large enough to be seen, and where. The tree is
// walked in the order in which it is painted, one step a call, and nothing below a subgraph is
// computed before it is entered. Cells are in points, tiled by `squarify`, the largest area first.
class TreemapTiling
{
public:
    // One step of the walk.
    struct Step
    {
        enum Kind { Node, Subgraph, End };
        Kind kind;
        ChartItem item; // of an end the subgraph that ends
        QRectF cell; // not of an end
    };

    // Below this a cell is left out, in square points; the others of its subgraph share its room.
    static constexpr double smallestCell = 4.0;

    // Starts within `room`, which the members of `root` fill.
    TreemapTiling(const DotGraph *graph, DotSubgraph *root, const QRectF &room);

    // The next cell, or the end of a subgraph that was entered; nothing behind the last. A subgraph
    // that is not entered after its step has no members and no end.
    std::optional<Step> next();

    // Goes into the subgraph of the last step, whose members get `room`.
    void enter(DotSubgraph *subgraph, const QRectF &room);

private:
    // The members of one subgraph with their cells, and the member that comes next.
    struct Level
    {
        DotSubgraph *subgraph;
        QList<ChartItem> items;
        QList<QRectF> cells;
        qsizetype next = 0;
    };

    const DotGraph *graph;
    QList<Level> open;
};

// How many of the areas, which fall, are large enough for a cell in the room, in square points,
// that they share in proportion. `total` is the sum of them all; it becomes that of those that
// stay.
qsizetype largeEnough(const QList<ChartItem> &items, double room, double &total);

// What the members of a subgraph get of its cell: less the margins and, below the upper one, the
// height of its label.
QRectF roomForMembers(const QRectF &cell, const QMarginsF &margins, int labelHeight);

} // namespace ORR::Graph::Layout
