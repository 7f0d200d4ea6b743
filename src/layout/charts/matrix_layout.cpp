#include "layout/charts/matrix_layout.h"

#include "device/graph_style.h"
#include "graph/attribute_values.h"
#include "graph/subgraph_walk.h"
#include "layout/charts/chart_items.h"

#include <QSize>

#include <algorithm>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;

namespace {

const QString axisName = u"axis"_s;
const QString styleName = u"style"_s;
const QString xName = u"x"_s;
const QString yName = u"y"_s;
const QString x0Name = u"x0"_s;
const QString x1Name = u"x1"_s;
const QString y0Name = u"y0"_s;
const QString y1Name = u"y1"_s;
const QString xShiftName = u"xshift"_s;
const QString yShiftName = u"yshift"_s;

constexpr int gap = 4; // between squares, labels and the edges of the page
constexpr int inset = 2; // of a square in its cell

enum class Axis { Both, Columns, Rows };

Axis axisFrom(const QString &text)
{
    return text == "x"_L1 ? Axis::Columns : text == "y"_L1 ? Axis::Rows : Axis::Both;
}

QString coordinate(qint64 value)
{
    return QString::number(saturated(value));
}

QPoint point(qint64 x, qint64 y)
{
    return {saturated(x), saturated(y)};
}

// What the labels of a subgraph, and of all in it, ask for.
struct Extents
{
    qint64 cell = 0; // the size of a square
    qint64 x = 0; // the width of all labels left of the rows
    qint64 y = 0; // the height of all labels above the columns

    void include(const Extents &other)
    {
        cell = std::max(cell, other.cell);
        x = std::max(x, other.x);
        y = std::max(y, other.y);
    }
};

// Numbers the headers and finds the one size of all squares.
class Measure
{
public:
    Measure(const LayoutContext &context, const GraphStyle &graphStyle)
        : graph(context.graph), style(graphStyle)
    {
    }

    Extents measure(DotSubgraph *root);

    qint64 xCount = 0;
    qint64 yCount = 0;

private:
    // A subgraph in the middle of its measuring: the counts at its start, and its members in the
    // order of their numbers.
    struct Level
    {
        DotSubgraph *subgraph;
        Axis axis;
        qint64 x0;
        qint64 y0;
        QList<ChartItem> members;
        qsizetype next = 0;
        Extents extents{};
    };

    Level enter(DotSubgraph *subgraph) const;
    void leave(Level &level);
    void measureNode(Level &level, DotNode *node);
    void measureLabel(Level &level);

    DotGraph *graph;
    const GraphStyle &style;
};

Extents Measure::measure(DotSubgraph *root)
{
    QList<Level> open{enter(root)};
    for (;;) {
        Level &level = open.last();
        if (level.next < level.members.size()) {
            const ChartItem member = level.members.at(level.next++);
            if (member.subgraph)
                open.append(enter(member.subgraph));
            else
                measureNode(level, member.node);
            continue;
        }
        leave(level);
        const Extents extents = level.extents;
        open.removeLast();
        if (open.isEmpty())
            return extents;
        open.last().extents.include(extents);
    }
}

Measure::Level Measure::enter(DotSubgraph *subgraph) const
{
    Level level{subgraph, axisFrom(graph->graphAttribute(subgraph, axisName)), xCount, yCount, {}};
    level.members.reserve(subgraph->subgraphs.size() + subgraph->nodes.size());
    for (DotSubgraph *child : std::as_const(subgraph->subgraphs))
        level.members.append({child, nullptr, 0.0});
    for (DotNode *node : std::as_const(subgraph->nodes))
        level.members.append({nullptr, node, 0.0});
    sortByIdNumber(level.members);
    return level;
}

void Measure::measureNode(Level &level, DotNode *node)
{
    const TextBlock label = style.nodeLabel(node);
    if (!label.isEmpty()) {
        if (level.axis == Axis::Columns)
            level.extents.include({label.width, 0, label.height});
        else
            level.extents.include({label.height, label.width, 0});
    }
    if (level.axis != Axis::Rows)
        graph->setNodeAttribute(node, xName, coordinate(xCount++));
    if (level.axis != Axis::Columns)
        graph->setNodeAttribute(node, yName, coordinate(yCount++));
}

void Measure::leave(Level &level)
{
    for (const DotEdge *edge : std::as_const(level.subgraph->edges)) {
        const TextBlock label = style.edgeLabel(edge);
        if (!label.isEmpty())
            level.extents.include({std::max(label.width, label.height), 0, 0});
    }
    measureLabel(level);
    graph->setGraphAttribute(level.subgraph, x0Name, coordinate(level.x0));
    graph->setGraphAttribute(level.subgraph, x1Name, coordinate(xCount));
    graph->setGraphAttribute(level.subgraph, y0Name, coordinate(level.y0));
    graph->setGraphAttribute(level.subgraph, y1Name, coordinate(yCount));
}

// A group's label must fit along its headers, and lies beyond all labels in it.
void Measure::measureLabel(Level &level)
{
    const TextBlock label = style.clusterLabel(level.subgraph);
    if (label.isEmpty())
        return;
    Extents &extents = level.extents;
    const qint64 columns = xCount - level.x0;
    const qint64 rows = yCount - level.y0;
    if (level.axis == Axis::Columns && columns > 0) {
        extents.cell = std::max(extents.cell, label.width / columns + 1);
        if (extents.y != 0)
            extents.y += gap;
        graph->setGraphAttribute(level.subgraph, yShiftName, coordinate(extents.y));
        extents.y += label.height;
    } else if (level.axis != Axis::Columns && rows > 0) {
        extents.cell = std::max(extents.cell, label.height / rows + 1);
        if (extents.x != 0)
            extents.x += gap;
        graph->setGraphAttribute(level.subgraph, xShiftName, coordinate(extents.x));
        extents.x += label.width;
    }
}

struct MatrixMetrics
{
    qint64 cell; // the pitch of the grid
    qint64 xOrigin; // where column 0 starts
    qint64 yOrigin; // where row 0 starts
};

qint64 origin(qint64 extent)
{
    return extent + (extent != 0 ? gap : 0) + gap;
}

class Painter
{
public:
    Painter(const LayoutContext &context, const GraphStyle &graphStyle, const MatrixMetrics &sizes)
        : graph(context.graph), device(context.device), style(graphStyle), metrics(sizes)
    {
    }

    void paint(DotSubgraph *root);

private:
    void paintGroup(DotSubgraph *subgraph);
    void paintBracket(DotSubgraph *subgraph, const TextBlock &label, Device::Pen *pen);
    void paintNode(DotNode *node);
    void paintEdge(DotEdge *edge);

    qint64 columnX(const QString &column) const
    {
        return integerFrom(column) * metrics.cell + metrics.xOrigin;
    }
    qint64 rowY(const QString &row) const
    {
        return integerFrom(row) * metrics.cell + metrics.yOrigin;
    }
    void drawLine(QPoint from, QPoint to, Device::Pen *pen)
    {
        device->drawPolyline({from, to}, pen);
    }

    DotGraph *graph;
    Device *device;
    const GraphStyle &style;
    MatrixMetrics metrics;
};

void Painter::paint(DotSubgraph *root)
{
    walkSubgraphs(
        root,
        [&](DotSubgraph *subgraph) {
            if (subgraph != root) {
                device->beginCluster(subgraph, false);
                paintGroup(subgraph);
            }
            return true;
        },
        [&](DotSubgraph *subgraph) {
            for (DotNode *node : std::as_const(subgraph->nodes))
                paintNode(node);
            for (DotEdge *edge : std::as_const(subgraph->edges))
                paintEdge(edge);
            if (subgraph != root)
                device->endCluster();
        });
}

void Painter::paintGroup(DotSubgraph *subgraph)
{
    const AttributeMap &own = subgraph->attributes;
    const qint64 x0 = columnX(own.value(x0Name));
    const qint64 x1 = columnX(own.value(x1Name));
    const qint64 y0 = rowY(own.value(y0Name));
    const qint64 y1 = rowY(own.value(y1Name));
    Device::Pen *pen = style.clusterPen(subgraph);
    if (x1 > x0 && y1 > y0 && !graph->graphAttribute(subgraph, styleName).contains("invisible"_L1))
        device->drawRect(point(x0, y0), point(x1, y1), 0, pen,
                         style.clusterFill(subgraph, nullptr));

    const TextBlock label = style.clusterLabel(subgraph);
    if (label.isEmpty())
        return;
    const qint64 w = label.width;
    const qint64 h = label.height;
    if (const QString *shift = own.find(xShiftName)) {
        const qint64 x = metrics.xOrigin - w - integerFrom(*shift) - gap;
        TextBlock::draw(label, point(x, (y1 - h - y0) / 2 + y0), device);
        drawLine(point(x, y0), point(x + w, y0), pen);
        drawLine(point(x, y1), point(x + w, y1), pen);
    } else if (const QString *yShift = own.find(yShiftName)) {
        const qint64 y = metrics.yOrigin - h - integerFrom(*yShift) - gap;
        TextBlock::draw(label, point((x1 - w - x0) / 2 + x0, y), device);
        drawLine(point(x0, y), point(x0, y + h), pen);
        drawLine(point(x1, y), point(x1, y + h), pen);
    }
}

void Painter::paintNode(DotNode *node)
{
    device->beginNode(node);
    const TextBlock label = style.nodeLabel(node);
    if (!label.isEmpty()) {
        const qint64 w = label.width;
        const qint64 h = label.height;
        if (const QString *row = node->attributes.find(yName))
            TextBlock::draw(label,
                            point(metrics.xOrigin - w - gap, (metrics.cell - h) / 2 + rowY(*row)),
                            device);
        else if (const QString *column = node->attributes.find(xName))
            TextBlock::draw(
                label, point((metrics.cell - w) / 2 + columnX(*column), metrics.yOrigin - h - gap),
                device);
    }
    device->endNode();
}

void Painter::paintEdge(DotEdge *edge)
{
    device->beginEdge(edge);
    const qint64 left = columnX(graph->nodeAttribute(edge->head, xName)) + inset;
    const qint64 top = rowY(graph->nodeAttribute(edge->tail, yName)) + inset;
    const qint64 side = metrics.cell - gap;
    device->drawRect(point(left, top), point(left + side, top + side), 0,
                     style.edgePen(edge, false), style.edgeFill(edge, nullptr));
    const TextBlock label = style.edgeLabel(edge);
    if (!label.isEmpty())
        TextBlock::draw(
            label, point((side - label.width) / 2 + left, (side - label.height) / 2 + top), device);
    device->endEdge();
    device->connect(edge, edge->tail, edge->head);
}

} // namespace

QString MatrixLayout::run(const LayoutContext &context)
{
    const GraphStyle style(context.graph, context.device);
    Measure measure(context, style);
    const Extents extents = measure.measure(context.graph->root());
    const MatrixMetrics metrics{extents.cell + gap, origin(extents.x), origin(extents.y)};
    context.device->begin(saturated(metrics.cell * measure.xCount + gap + metrics.xOrigin),
                          saturated(metrics.cell * measure.yCount + gap + metrics.yOrigin));
    Painter(context, style, metrics).paint(context.graph->root());
    return context.device->end();
}

} // namespace ORR::Graph::Layout
