#include "layout/charts/chart_legend.h"

#include "graph/attribute_values.h"
#include "graph/numbers.h"
#include "graph/subgraph_walk.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;

namespace {

const QString legendName = u"legend"_s;
const QString xName = u"x"_s;
const QString yName = u"y"_s;

constexpr int gap = 4; // between entries, and between a square and its text
constexpr int distance = 12; // between the chart and the legend

// The side of the chart that a legend lies on. It runs "along" one axis, x or y, and its lines
// follow each other "across".
struct Side
{
    explicit Side(const QString &legend)
        : horizontal(legend == "top"_L1 || legend == "bottom"_L1),
          before(legend == "top"_L1 || legend == "left"_L1)
    {
    }

    qint64 along(int x, int y) const { return horizontal ? x : y; }
    qint64 across(int x, int y) const { return horizontal ? y : x; }
    const QString &alongKey() const { return horizontal ? xName : yName; }
    const QString &acrossKey() const { return horizontal ? yName : xName; }

    bool horizontal;
    bool before; // the legend comes before the chart
};

struct Extent
{
    qint64 along = 0;
    qint64 across = 0;
};

struct Entry
{
    DotNode *node;
    Extent size;
    qint64 acrossStart = 0;
};

std::optional<Extent> titleExtent(const DotSubgraph *legend, Side side, const GraphStyle &style)
{
    const TextBlock title = style.clusterLabel(legend);
    if (title.isEmpty())
        return {};
    return Extent{side.along(title.width, title.height), side.across(title.width, title.height)};
}

QList<Entry> legendEntries(const DotSubgraph *legend, Side side, const GraphStyle &style)
{
    QList<Entry> entries;
    for (DotNode *node : legend->nodes) {
        const TextBlock label = style.nodeLabel(node);
        if (label.isEmpty())
            continue;
        const int length = saturated(qint64(label.width) + gap + label.height);
        entries.append(
            {node, {side.along(length, label.height), side.across(length, label.height)}});
    }
    return entries;
}

QString coordinate(qint64 value)
{
    return QString::number(saturated(value));
}

// The moved corners are cut each by itself.
void moveRect(QRect &rect, qint64 dx, qint64 dy)
{
    rect.setCoords(saturated(rect.left() + dx), saturated(rect.top() + dy),
                   saturated(rect.right() + dx), saturated(rect.bottom() + dy));
}

int farCorner(int start, qint64 length)
{
    const qint64 lowest = qint64(std::numeric_limits<int>::min()) + std::max(start, 0);
    return saturated(std::max(start + length - 1, lowest));
}

QPoint storedPosition(const QString &x, const QString &y)
{
    return {truncated(numberFrom(x)), truncated(numberFrom(y))};
}

} // namespace

QRect chartRect(int left, int top, qint64 width, qint64 height)
{
    return {QPoint(left, top), QPoint(farCorner(left, width), farCorner(top, height))};
}

DotSubgraph *findLegend(DotSubgraph *subgraph)
{
    DotSubgraph *found = nullptr;
    walkSubgraphs(
        subgraph,
        [&](DotSubgraph *candidate) {
            if (!found && candidate->attributes.contains(legendName))
                found = candidate;
            return !found;
        },
        [](DotSubgraph *) {});
    return found;
}

QSize placeLegend(DotGraph *graph, QRect &rect, DotSubgraph *legend, const GraphStyle &style)
{
    if (!legend)
        return {saturated(2 * qint64(rect.x()) + rect.width()),
                saturated(2 * qint64(rect.y()) + rect.height())};

    const Side side(graph->graphAttribute(legend, legendName));
    const std::optional<Extent> title = titleExtent(legend, side, style);
    QList<Entry> entries = legendEntries(legend, side, style);

    qint64 maxAlong = 0;
    for (const Entry &entry : std::as_const(entries))
        maxAlong = std::max(maxAlong, entry.size.along);
    const qint64 available = side.along(rect.width(), rect.height());
    const qint64 cell = maxAlong + gap;
    qint64 columns = std::max<qint64>(std::min<qint64>(available / cell, entries.size()), 1);
    const qint64 needed = columns * cell - gap;
    qint64 band = std::max(available, needed);

    qint64 alongStart = side.along(rect.x(), rect.y());
    // Behind the chart the legend starts past the chart's extent alone: its margin does not count.
    qint64 across = side.before ? side.across(rect.x(), rect.y())
                                : side.across(rect.width(), rect.height()) + distance;
    if (title) {
        band = std::max(band, title->along);
        const qint64 indent = side.horizontal ? (band - title->along) / 2 : 0;
        graph->setGraphAttribute(legend, side.alongKey(), coordinate(alongStart + indent));
        graph->setGraphAttribute(legend, side.acrossKey(), coordinate(across));
        if (side.horizontal) {
            across += title->across + gap;
        } else {
            alongStart += title->along + gap;
            // The title takes the place of one entry of each line, as it stands beside them all.
            columns = std::max<qint64>(columns - 1, 1);
        }
    }

    alongStart += (band - needed) / 2;
    const qint64 firstAcross = across;
    qint64 along = alongStart;
    qint64 rowMax = 0;
    for (qsizetype i = 0; i < entries.size(); ++i) {
        Entry &entry = entries[i];
        graph->setNodeAttribute(entry.node, side.alongKey(), coordinate(along));
        graph->setNodeAttribute(entry.node, side.acrossKey(), coordinate(across));
        entry.acrossStart = across;
        rowMax = std::max(rowMax, entry.size.across);
        if ((i + 1) % columns == 0) {
            across += rowMax + gap;
            rowMax = 0;
            along = alongStart;
        } else {
            along += cell;
        }
    }

    // A last line that is full has been left already, and the gap behind it counts.
    const qint64 acrossEnd = across + rowMax;
    const qint64 extent = std::max(acrossEnd - firstAcross, title ? title->across : 0);
    const qint64 shift = (band - available) / 2;
    const qint64 push = side.before ? extent + firstAcross + distance : 0;
    if (side.horizontal) {
        moveRect(rect, shift, push);
        return {saturated(band + 2 * qint64(rect.x())),
                saturated(std::max(qint64(rect.height()) + rect.y(), acrossEnd) + rect.y())};
    }

    moveRect(rect, push, shift);
    if (title) {
        graph->setGraphAttribute(legend, side.acrossKey(),
                                 coordinate(firstAcross + (extent - title->across) / 2));
        const qint64 spare = (extent - (acrossEnd - firstAcross)) / 2;
        if (spare > 0) {
            for (const Entry &entry : std::as_const(entries))
                graph->setNodeAttribute(entry.node, side.acrossKey(),
                                        coordinate(entry.acrossStart + spare));
        }
    }
    return {saturated(std::max(qint64(rect.width()) + rect.x(), firstAcross + extent) + rect.x()),
            saturated(band + 2 * qint64(rect.y()))};
}

void drawLegend(Device *device, DotGraph *graph, const GraphStyle &style, DotSubgraph *legend)
{
    if (!legend)
        return;
    device->beginCluster(legend, true);
    const TextBlock title = style.clusterLabel(legend);
    if (!title.isEmpty())
        TextBlock::draw(title,
                        storedPosition(graph->graphAttribute(legend, xName),
                                       graph->graphAttribute(legend, yName)),
                        device);
    for (DotNode *node : std::as_const(legend->nodes)) {
        const TextBlock label = style.nodeLabel(node);
        if (label.isEmpty())
            continue;
        device->beginNode(node);
        const QPoint corner =
            storedPosition(graph->nodeAttribute(node, xName), graph->nodeAttribute(node, yName));
        const int square = label.height;
        const QRectF bounds(corner.x(), corner.y(), square, square);
        device->drawRect(
            corner,
            {saturated(qint64(corner.x()) + square), saturated(qint64(corner.y()) + square)}, 0,
            style.nodePen(node), style.nodeFill(node, &bounds));
        TextBlock::draw(label, {saturated(qint64(corner.x()) + square + gap), corner.y()}, device);
        device->endNode();
    }
    device->endCluster();
}

} // namespace ORR::Graph::Layout
