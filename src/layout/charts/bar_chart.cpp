#include "layout/charts/bar_chart.h"

#include "device/graph_style.h"
#include "graph/numbers.h"
#include "layout/charts/bar_attributes.h"
#include "layout/charts/bar_places.h"
#include "layout/charts/chart_items.h"
#include "layout/charts/chart_legend.h"

namespace ORR::Graph::Layout {

namespace {

namespace Rows = BarAttributes;

// A bar or a segment of one, with its label measured.
struct Bar
{
    DotNode *node = nullptr;
    double value = 0.0;
    TextBlock label;
};

// One place in the row: a bar, or a subgraph with its caption and the segments of its bar.
struct Place
{
    DotSubgraph *subgraph = nullptr;
    TextBlock caption;
    QList<Bar> bars;
};

BarDirection directionOf(const DotGraph *graph)
{
    const int rankdir = Rows::rankdir.of(graph, graph->root());
    return {rankdir != Rows::TopToBottom && rankdir != Rows::BottomToTop,
            rankdir == Rows::TopToBottom || rankdir == Rows::RightToLeft};
}

QSize wantedSize(const DotGraph *graph)
{
    return {truncated(Rows::width.of(graph, graph->root())),
            truncated(Rows::height.of(graph, graph->root()))};
}

// Not valid if there is no label.
QSize sizeOf(const TextBlock &label)
{
    return label.isEmpty() ? QSize() : label.size();
}

Bar measuredBar(const DotGraph *graph, DotNode *node, const GraphStyle &style)
{
    return {node, Rows::area.of(graph, node), style.nodeLabel(node)};
}

Place measuredGroup(const DotGraph *graph, DotSubgraph *subgraph, const GraphStyle &style)
{
    Place place{subgraph, style.clusterLabel(subgraph), {}};
    place.bars.reserve(subgraph->nodes.size());
    for (DotNode *node : std::as_const(subgraph->nodes))
        place.bars.append(measuredBar(graph, node, style));
    return place;
}

// The places of the row in their order.
QList<Place> measuredPlaces(const DotGraph *graph, const DotSubgraph *legend,
                            const GraphStyle &style)
{
    const DotSubgraph *root = graph->root();
    QList<ChartItem> items;
    items.reserve(root->subgraphs.size() + root->nodes.size());
    for (DotSubgraph *subgraph : root->subgraphs) {
        if (subgraph != legend)
            items.append({subgraph, nullptr});
    }
    for (DotNode *node : root->nodes)
        items.append({nullptr, node});
    sortByIdNumber(items);

    QList<Place> places;
    places.reserve(items.size());
    for (const ChartItem &item : std::as_const(items)) {
        if (item.subgraph)
            places.append(measuredGroup(graph, item.subgraph, style));
        else
            places.append({nullptr, {}, {measuredBar(graph, item.node, style)}});
    }
    return places;
}

BarMetrics metricsOf(const DotGraph *graph, const QList<Place> &places)
{
    BarMeasure measure(directionOf(graph));
    for (const Place &place : places) {
        QList<BarSegment> segments;
        segments.reserve(place.bars.size());
        for (const Bar &bar : place.bars)
            segments.append({bar.value, sizeOf(bar.label)});
        if (place.subgraph)
            measure.addStack(sizeOf(place.caption), segments);
        else
            measure.addBar(segments.constFirst());
    }
    return measure.metrics(wantedSize(graph));
}

// Draws the places of the row one after the other.
class BarPainter
{
public:
    BarPainter(Device *drawingDevice, const GraphStyle &graphStyle, const BarMetrics &metrics)
        : device(drawingDevice), style(graphStyle), cursor(metrics)
    {
    }

    void paint(const QList<Place> &places)
    {
        for (const Place &place : places) {
            if (place.subgraph)
                paintGroup(place);
            else
                paintLoneBar(place.bars.constFirst());
        }
    }

private:
    void paintGroup(const Place &place)
    {
        device->beginCluster(place.subgraph, true);
        if (!place.caption.isEmpty())
            TextBlock::draw(place.caption, cursor.caption(sizeOf(place.caption)), device);
        for (const Bar &bar : place.bars) {
            if (bar.value > 0.0)
                cursor.goBehind(paintBar(bar));
        }
        device->endCluster();
        cursor.goToNextBar();
    }

    void paintLoneBar(const Bar &bar)
    {
        if (!(bar.value > 0.0))
            return;
        paintBar(bar);
        cursor.goToNextBar();
    }

    BarCursor::Bar paintBar(const Bar &bar)
    {
        device->beginNode(bar.node);
        const BarCursor::Bar place = cursor.bar(bar.value);
        device->drawRect(place.topLeft, place.bottomRight, 0, style.nodePen(bar.node),
                         style.nodeFill(bar.node, nullptr));
        if (!bar.label.isEmpty())
            TextBlock::draw(bar.label, labelInBar(place, sizeOf(bar.label)), device);
        device->endNode();
        return place;
    }

    Device *device;
    const GraphStyle &style;
    BarCursor cursor;
};

} // namespace

QString BarChart::run(const LayoutContext &context)
{
    const auto [graph, device] = context;
    const GraphStyle style(graph, device);
    DotSubgraph *legendGraph = findLegend(graph);
    const QList<Place> places = measuredPlaces(graph, legendGraph, style);
    BarMetrics metrics = metricsOf(graph, places);

    const ChartLegend legend(graph, legendGraph, style);
    const QSize size = legend.place(metrics.chart);
    device->begin(size.width(), size.height());
    BarPainter(device, style, metrics).paint(places);
    legend.draw(device);
    return device->end();
}

} // namespace ORR::Graph::Layout
