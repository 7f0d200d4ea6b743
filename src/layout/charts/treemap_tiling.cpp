#include "layout/charts/treemap_tiling.h"

#include "layout/charts/chart_attributes.h"
#include "layout/charts/squarify.h"

namespace ORR::Graph::Layout {

qsizetype largeEnough(const QList<ChartItem> &items, double room, double &total)
{
    // Whatever is left out raises the share of the others. A share that is not a number, as of a
    // total of zero, counts as too small.
    qsizetype kept = items.size();
    for (; kept > 0; --kept) {
        const double smallest = items.at(kept - 1).area;
        if (room * smallest / total >= TreemapTiling::smallestCell)
            break;
        total -= smallest;
    }
    return kept;
}

QRectF roomForMembers(const QRectF &cell, const QMarginsF &margins, int labelHeight)
{
    QMarginsF inner = margins;
    inner.setTop(inner.top() + labelHeight);
    return cell.marginsRemoved(inner);
}

TreemapTiling::TreemapTiling(const DotGraph *dotGraph, DotSubgraph *root, const QRectF &room)
    : graph(dotGraph)
{
    enter(root, room);
}

void TreemapTiling::enter(DotSubgraph *subgraph, const QRectF &room)
{
    Level &level = open.emplace_back(Level{subgraph, {}, {}});
    if (!room.isValid())
        return;
    level.items = chartItems(graph, subgraph, false);
    const double area = room.width() * room.height();
    double total = ChartAttributes::totalArea.inheritedNumber(graph, subgraph);
    level.items.resize(largeEnough(level.items, area, total));

    QList<double> values;
    values.reserve(level.items.size());
    for (const ChartItem &item : std::as_const(level.items))
        values.append(area * item.area / total);
    level.cells = squarify(values, room);
}

std::optional<TreemapTiling::Step> TreemapTiling::next()
{
    while (!open.isEmpty()) {
        Level &level = open.last();
        if (level.next == level.items.size()) {
            const ChartItem ended{level.subgraph, nullptr, 0.0};
            open.removeLast();
            if (open.isEmpty())
                break;
            return Step{Step::End, ended, {}};
        }
        const QRectF cell = level.cells.at(level.next);
        const ChartItem item = level.items.at(level.next++);
        if (cell.isValid())
            return Step{item.node ? Step::Node : Step::Subgraph, item, cell};
    }
    return {};
}

} // namespace ORR::Graph::Layout
