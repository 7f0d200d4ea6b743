#include "layout/charts/chart_items.h"

#include "graph/numbers.h"
#include "graph/subgraph_walk.h"
#include "layout/charts/chart_attributes.h"

#include <algorithm>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;
using ChartAttributes::area;
using ChartAttributes::totalArea;

namespace {

// A strict weak order over all doubles: a plain "<" is none as soon as one of them is no number.
bool smallerArea(const ChartItem &a, const ChartItem &b)
{
    if (a.area != a.area || b.area != b.area)
        return a.area != a.area && b.area == b.area;
    return a.area < b.area;
}

const QString &idOf(const ChartItem &item)
{
    return item.node ? item.node->id : item.subgraph->id;
}

int idNumber(const ChartItem &item)
{
    const QStringView id(idOf(item));
    const QLatin1StringView prefix = item.node ? "__N"_L1 : "cluster_"_L1;
    return id.startsWith(prefix) ? id.sliced(prefix.size()).toInt() : 0;
}

bool idLess(int numberA, const ChartItem &a, int numberB, const ChartItem &b)
{
    return numberA != numberB ? numberA < numberB : idOf(a) < idOf(b);
}

} // namespace

double sumArea(DotGraph *graph, DotSubgraph *subgraph)
{
    QList<double> totals{0.0}; // of the subgraphs that the walk is inside of, and of their caller
    walkSubgraphs(
        subgraph,
        [&](DotSubgraph *) {
            totals.append(0.0);
            return true;
        },
        [&](DotSubgraph *done) {
            // The nodes come after the children: a sum of doubles depends on its order.
            double total = totals.takeLast();
            for (const DotNode *node : std::as_const(done->nodes))
                total += area.of(graph, node);
            totalArea.setNumber(graph, done, total);
            totals.last() += total;
        });
    return totals.constFirst();
}

QList<ChartItem> chartItems(const DotGraph *graph, const DotSubgraph *subgraph, bool ascending)
{
    QList<ChartItem> items;
    items.reserve(subgraph->subgraphs.size() + subgraph->nodes.size());
    for (DotSubgraph *child : subgraph->subgraphs)
        items.append({child, nullptr, totalArea.inheritedNumber(graph, child)});
    for (DotNode *node : subgraph->nodes)
        items.append({nullptr, node, area.of(graph, node)});
    if (ascending)
        std::stable_sort(items.begin(), items.end(), smallerArea);
    else
        std::stable_sort(items.begin(), items.end(),
                         [](const ChartItem &a, const ChartItem &b) { return smallerArea(b, a); });
    return items;
}

QList<double> areasOf(const QList<ChartItem> &items)
{
    QList<double> areas;
    areas.reserve(items.size());
    for (const ChartItem &item : items)
        areas.append(item.area);
    return areas;
}

bool chartItemLess(const ChartItem &a, const ChartItem &b)
{
    return idLess(idNumber(a), a, idNumber(b), b);
}

void sortByIdNumber(QList<ChartItem> &items)
{
    struct Numbered
    {
        int number;
        ChartItem item;
    };
    QList<Numbered> numbered;
    numbered.reserve(items.size());
    for (const ChartItem &item : std::as_const(items))
        numbered.append({idNumber(item), item});
    std::stable_sort(numbered.begin(), numbered.end(), [](const Numbered &a, const Numbered &b) {
        return idLess(a.number, a.item, b.number, b.item);
    });
    std::transform(numbered.cbegin(), numbered.cend(), items.begin(),
                   [](const Numbered &entry) { return entry.item; });
}

ColorValue colorInterpolate(const ColorValue &a, const ColorValue &b, double t)
{
    if (!a.isValid() || !b.isValid())
        return {};
    const auto between = [t](int from, int to) { return truncated((to - from) * t + from); };
    return {between(a.red(), b.red()), between(a.green(), b.green()), between(a.blue(), b.blue())};
}

} // namespace ORR::Graph::Layout
