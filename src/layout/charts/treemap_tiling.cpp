#include "layout/charts/treemap_tiling.h"

#include "layout/charts/squarify.h"

namespace ORR::Graph::Layout {

qsizetype largeEnough(const QList<double> &areas, double room, double &total)
{
    // Whatever is left out raises the share of the others. A share that is not a number, as of a
    // total of zero, counts as too small.
    qsizetype kept = areas.size();
    for (; kept > 0; --kept) {
        const double smallest = areas.at(kept - 1);
        if (room * smallest / total >= smallestCell)
            break;
        total -= smallest;
    }
    return kept;
}

QList<QRectF> treemapCells(const QList<double> &areas, double total, const QRectF &room)
{
    if (!room.isValid())
        return {};
    const double area = room.width() * room.height();
    const qsizetype kept = largeEnough(areas, area, total);
    QList<double> values;
    values.reserve(kept);
    for (qsizetype i = 0; i < kept; ++i)
        values.append(area * areas.at(i) / total);
    return squarify(values, room);
}

QRectF roomForMembers(const QRectF &cell, const QMarginsF &margins, int labelHeight)
{
    QMarginsF inner = margins;
    inner.setTop(inner.top() + labelHeight);
    return cell.marginsRemoved(inner);
}

void TreemapTiling::enter(const QList<QRectF> &cells)
{
    open.append(Level{cells});
}

std::optional<TreemapTiling::Step> TreemapTiling::next()
{
    while (!open.isEmpty()) {
        Level &level = open.last();
        if (level.next == level.cells.size()) {
            open.removeLast();
            if (open.isEmpty())
                break;
            return Step{Step::End, -1, {}};
        }
        const qsizetype member = level.next++;
        const QRectF cell = level.cells.at(member);
        if (cell.isValid())
            return Step{Step::Member, member, cell};
    }
    return {};
}

} // namespace ORR::Graph::Layout
