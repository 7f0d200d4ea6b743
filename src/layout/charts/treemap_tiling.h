#pragma once

#include <QList>
#include <QMarginsF>
#include <QRectF>

#include <optional>

// The cells of a treemap, in points: what of each subgraph is large enough to be seen, and where.
namespace ORR::Graph::Layout {

// Below this a cell is left out, in square points; the others of its subgraph share its room.
inline constexpr double smallestCell = 4.0;

// How many of the areas, which fall, are large enough for a cell in the room, in square points,
// that they share in proportion. `total` is the sum of them all; it becomes that of those that
// stay.
qsizetype largeEnough(const QList<double> &areas, double room, double &total);

// The cells of the areas, which fall and whose sum is `total`: for each that is large enough one
// tiled by `squarify`, in their order. None in a room that is not valid.
QList<QRectF> treemapCells(const QList<double> &areas, double total, const QRectF &room);

// What the members of a subgraph get of its cell: less the margins and, below the upper one, the
// height of its label.
QRectF roomForMembers(const QRectF &cell, const QMarginsF &margins, int labelHeight);

// The walk over the cells of nested subgraphs, in the order in which they are painted, one step a
// call. Whoever walks says what a subgraph holds when entering it, so nothing below is computed
// before that.
class TreemapTiling
{
public:
    // One step of the walk.
    struct Step
    {
        enum Kind { Member, End };
        Kind kind;
        qsizetype member; // its index in the subgraph that the walk is in; not of an end
        QRectF cell; // not of an end
    };

    // Goes into the outermost subgraph, or into that of the last step. `cells` are those of its
    // members.
    void enter(const QList<QRectF> &cells);

    // The next cell that is valid, or the end of a subgraph that was entered; nothing behind the
    // last. The outermost subgraph, and one that is not entered after its step, have no end.
    std::optional<Step> next();

private:
    // The cells of one subgraph's members, and the member that comes next.
    struct Level
    {
        QList<QRectF> cells;
        qsizetype next = 0;
    };

    QList<Level> open;
};

} // namespace ORR::Graph::Layout
