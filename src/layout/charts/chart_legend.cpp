#include "layout/charts/chart_legend.h"

#include "graph/numbers.h"
#include "graph/subgraph_walk.h"
#include "layout/charts/legend_attributes.h"
#include "layout/charts/legend_places.h"

namespace ORR::Graph::Layout {

namespace {

namespace Rows = LegendAttributes;

constexpr int textGap = 4; // between a square and its text

LegendSide sideOf(const DotGraph *graph, const DotSubgraph *legend)
{
    const int word = Rows::legend.of(graph, legend);
    return word < 0 ? LegendSide::Right : LegendSide(word);
}

// An entry: a square as high as its label, and the label.
QSize entrySize(const TextBlock &label)
{
    return {saturated(qint64(label.width) + textGap + label.height), label.height};
}

template <typename Object>
void storePlace(DotGraph *graph, Object *object, QPoint place)
{
    Rows::x.setInteger(graph, object, place.x());
    Rows::y.setInteger(graph, object, place.y());
}

template <typename Object>
QPoint storedPlace(const DotGraph *graph, const Object *object)
{
    return {truncated(Rows::x.inheritedNumber(graph, object)),
            truncated(Rows::y.inheritedNumber(graph, object))};
}

} // namespace

DotSubgraph *findLegend(const DotGraph *graph)
{
    DotSubgraph *found = nullptr;
    walkSubgraphs(
        graph->root(),
        [&](DotSubgraph *candidate) {
            if (!found && Rows::legend.isGiven(graph, candidate))
                found = candidate;
            return !found;
        },
        [](DotSubgraph *) {});
    return found;
}

ChartLegend::ChartLegend(DotGraph *dotGraph, DotSubgraph *legend, const GraphStyle &graphStyle)
    : graph(dotGraph), subgraph(legend), style(graphStyle)
{
    if (!subgraph)
        return;
    title = style.clusterLabel(subgraph);
    for (DotNode *node : std::as_const(subgraph->nodes)) {
        const TextBlock label = style.nodeLabel(node);
        if (!label.isEmpty())
            entries.append({node, label});
    }
}

QSize ChartLegend::place(QRect &rect) const
{
    if (!subgraph)
        return pageWithoutLegend(rect);

    LegendParts parts{sideOf(graph, subgraph), {}, {}};
    if (!title.isEmpty())
        parts.title = QSize(title.width, title.height);
    parts.entries.reserve(entries.size());
    for (const Entry &entry : entries)
        parts.entries.append(entrySize(entry.label));

    const LegendPlaces places = legendPlaces(parts, rect);
    if (parts.title)
        storePlace(graph, subgraph, places.title);
    for (qsizetype i = 0; i < entries.size(); ++i)
        storePlace(graph, entries.at(i).node, places.entries.at(i));
    rect = places.chart;
    return places.page;
}

void ChartLegend::draw(Device *device) const
{
    if (!subgraph)
        return;
    device->beginCluster(subgraph, true);
    if (!title.isEmpty())
        TextBlock::draw(title, storedPlace(graph, subgraph), device);
    for (const Entry &entry : entries)
        drawEntry(entry, device);
    device->endCluster();
}

void ChartLegend::drawEntry(const Entry &entry, Device *device) const
{
    const auto &[node, label] = entry;
    device->beginNode(node);
    const QPoint corner = storedPlace(graph, node);
    const int square = label.height;
    const QRectF bounds(corner.x(), corner.y(), square, square);
    device->drawRect(corner,
                     saturatedPoint(qint64(corner.x()) + square, qint64(corner.y()) + square), 0,
                     style.nodePen(node), style.nodeFill(node, &bounds));
    TextBlock::draw(label, saturatedPoint(qint64(corner.x()) + square + textGap, corner.y()),
                    device);
    device->endNode();
}

} // namespace ORR::Graph::Layout
