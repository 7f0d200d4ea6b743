#include "layout/charts/bar_chart.h"

#include "graph/attribute_values.h"
#include "layout/charts/chart_legend.h"

#include <algorithm>
#include <cmath>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;

namespace {

const QString areaName = u"area"_s;
const QString heightName = u"height"_s;
const QString rankdirName = u"rankdir"_s;
const QString widthName = u"width"_s;

constexpr int margin = 4; // around the chart
constexpr int gap = 4; // between bars, and between a caption and its bar
constexpr int leastThickness = 8;
constexpr double leastLength = 4.0;

QPoint pointAt(qint64 x, qint64 y)
{
    return {saturated(x), saturated(y)};
}

int wantedSize(const DotGraph *graph, const QString &name)
{
    return truncated(numberFrom(graph->graphAttribute(graph->root(), name)));
}

} // namespace

QString BarChart::run(const LayoutContext &context)
{
    DotGraph *graph = context.graph;
    Device *device = context.device;
    const GraphStyle style(graph, device);
    const QString rankdir = graph->graphAttribute(graph->root(), rankdirName);
    *this = BarChart();
    horizontal = rankdir != "TB"_L1 && rankdir != "BT"_L1;
    reversed = rankdir == "TB"_L1 || rankdir == "RL"_L1;

    DotSubgraph *legend = findLegend(graph->root());
    const QList<Place> places = measuredPlaces(graph, legend, style);
    finishMeasure(graph);
    const QSize size = placeLegend(graph, chartRect, legend, style);
    device->begin(size.width(), size.height());
    resetCursor();
    for (const Place &place : places) {
        if (place.subgraph)
            drawGroup(device, place, style);
        else
            drawBar(device, place.bars.constFirst(), style, false);
    }
    drawLegend(device, graph, style, legend);
    return device->end();
}

// The places of the row in their order, all measured.
QList<BarChart::Place> BarChart::measuredPlaces(DotGraph *graph, const DotSubgraph *legend,
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
            places.append(measureGroup(graph, item.subgraph, style));
        else
            places.append({nullptr, {}, {measureNode(graph, item.node, style, false)}});
    }
    return places;
}

BarChart::Place BarChart::measureGroup(const DotGraph *graph, DotSubgraph *subgraph,
                                       const GraphStyle &style)
{
    Place place{subgraph, style.clusterLabel(subgraph), {}};
    groupWidth = std::max(groupWidth, place.caption.width);
    groupHeight = std::max(groupHeight, place.caption.height);
    // The fraction of each value is lost here, and a chart can come out a little short for them;
    // that is meant.
    double sum = 0.0;
    place.bars.reserve(subgraph->nodes.size());
    for (DotNode *node : std::as_const(subgraph->nodes)) {
        place.bars.append(measureNode(graph, node, style, true));
        const double value = place.bars.constLast().value;
        if (!std::isnan(value))
            sum += std::trunc(value);
    }
    maxValue = std::max(maxValue, sum);
    ++barCount;
    return place;
}

// A bar that isn't above 0 is not drawn, but its label and its place in the row count.
BarChart::Bar BarChart::measureNode(const DotGraph *graph, DotNode *node, const GraphStyle &style,
                                    bool inGroup)
{
    Bar bar{node, numberFrom(graph->nodeAttribute(node, areaName)), style.nodeLabel(node)};
    const bool labelled = !bar.label.isEmpty();
    if (labelled) {
        nodeWidth = std::max(nodeWidth, bar.label.width);
        nodeHeight = std::max(nodeHeight, bar.label.height);
    }
    if (bar.value > 0.0) {
        scaleX = std::max(scaleX, (labelled ? bar.label.width : leastLength) / bar.value);
        scaleY = std::max(scaleY, (labelled ? bar.label.height : leastLength) / bar.value);
    }
    maxValue = std::max(maxValue, bar.value);
    if (!inGroup)
        ++barCount;
    return bar;
}

void BarChart::finishMeasure(const DotGraph *graph)
{
    const int wantedWidth = wantedSize(graph, widthName);
    const int wantedHeight = wantedSize(graph, heightName);
    const int wantedAcross = horizontal ? wantedHeight : wantedWidth;
    const int wantedAlong = horizontal ? wantedWidth : wantedHeight;
    const int captionAlong = horizontal ? groupWidth : groupHeight;
    double &scale = horizontal ? scaleX : scaleY;

    thick =
        std::max(leastThickness,
                 horizontal ? std::max(groupHeight, nodeHeight) : std::max(groupWidth, nodeWidth));
    if (barCount != 0 && wantedAcross != 0) {
        const qint64 gaps = qint64(gap) * barCount;
        thick = std::max(thick, saturated((wantedAcross - gaps) / barCount));
    }
    if (maxValue > 0.0) {
        const double length =
            wantedAlong < 1 ? 2.0 * std::max(leastThickness, captionAlong) : wantedAlong;
        scale = std::max(scale, length / maxValue);
    }
    band = captionAlong == 0 ? 0 : saturated(qint64(captionAlong) + gap);

    const int along = truncated(maxValue * scale + gap + band);
    const qint64 across = (qint64(thick) + gap) * barCount - gap;
    chartRect = horizontal ? Layout::chartRect(margin, margin, along, across)
                           : Layout::chartRect(margin, margin, across, along);
}

// Where the bars begin, along their direction.
int BarChart::baseAlong() const
{
    if (horizontal)
        return saturated(chartRect.x()
                         + (reversed ? qint64(chartRect.width()) - band : qint64(band)));
    return saturated(chartRect.y() + (reversed ? qint64(band) : qint64(chartRect.height()) - band));
}

void BarChart::resetCursor()
{
    cursor = horizontal ? QPoint(baseAlong(), chartRect.y()) : QPoint(chartRect.x(), baseAlong());
}

void BarChart::nextBar()
{
    const qint64 step = qint64(thick) + gap;
    cursor = horizontal ? pointAt(baseAlong(), cursor.y() + step)
                        : pointAt(cursor.x() + step, baseAlong());
}

void BarChart::drawGroup(Device *device, const Place &place, const GraphStyle &style)
{
    device->beginCluster(place.subgraph, true);
    const TextBlock &caption = place.caption;
    if (!caption.isEmpty()) {
        const qint64 x = cursor.x();
        const qint64 y = cursor.y();
        const QPoint position = horizontal
            ? pointAt(x + (reversed ? gap : -gap - caption.width), y + (thick - caption.height) / 2)
            : pointAt(x + (thick - caption.width) / 2,
                      y + (reversed ? -gap - caption.height : gap));
        TextBlock::draw(caption, position, device);
    }
    for (const Bar &bar : place.bars)
        drawBar(device, bar, style, true);
    device->endCluster();
    nextBar();
}

// Draws a bar from the cursor on, and moves the cursor to its end or to the next bar.
void BarChart::drawBar(Device *device, const Bar &bar, const GraphStyle &style, bool stacked)
{
    if (!(bar.value > 0.0))
        return;
    device->beginNode(bar.node);
    QPoint p = cursor;
    QPoint q =
        horizontal ? pointAt(p.x(), qint64(p.y()) + thick) : pointAt(qint64(p.x()) + thick, p.y());
    // The corner that the bar grows from stays, so that p is the top left one in every direction.
    const double length = bar.value * (horizontal ? scaleX : scaleY);
    int end = 0;
    if (horizontal) {
        end = truncated(reversed ? p.x() - length : p.x() + length);
        (reversed ? p : q).setX(end);
    } else {
        end = truncated(reversed ? p.y() + length : p.y() - length);
        (reversed ? q : p).setY(end);
    }
    device->drawRect(p, q, 0, style.nodePen(bar.node), style.nodeFill(bar.node, nullptr));

    if (!bar.label.isEmpty()) {
        // Where the label sticks out by an odd number of points, one more of them lies on the left
        // and below: x is centred in doubles and y in integers, which is meant.
        const qint64 roomX = qint64(q.x()) - p.x() - bar.label.width;
        const qint64 roomY = qint64(q.y()) - p.y() - bar.label.height;
        TextBlock::draw(bar.label,
                        {truncated(double(roomX) * 0.5 + p.x()), saturated(roomY / 2 + p.y())},
                        device);
    }
    device->endNode();
    if (!stacked)
        nextBar();
    else if (horizontal)
        cursor.setX(end);
    else
        cursor.setY(end);
}

} // namespace ORR::Graph::Layout
