#include "layout/charts/treemap.h"

#include "device/graph_style.h"
#include "device/text_image.h"
#include "graph/attribute_values.h"
#include "layout/charts/chart_items.h"
#include "layout/charts/chart_legend.h"
#include "layout/charts/squarify.h"

#include <QMarginsF>

#include <algorithm>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;

namespace {

const QString areaName = u"area"_s;
const QString heightName = u"height"_s;
const QString labelName = u"label"_s;
const QString marginName = u"margin"_s;
const QString widthName = u"width"_s;
const QString xName = u"x"_s;
const QString yName = u"y"_s;

const QString defaultWidth = u"640"_s;
const QString defaultHeight = u"480"_s;
constexpr double defaultMargin = 5.0;
constexpr double smallestCell = 4.0; // square points

// The members of one subgraph with their cells, and the member that is to be painted next.
struct Level
{
    QList<ChartItem> items;
    QList<QRectF> cells;
    qsizetype next = 0;
    DotSubgraph *subgraph = nullptr; // to be ended behind its members; null for the root
};

class Painter
{
public:
    explicit Painter(const LayoutContext &context)
        : graph(context.graph), device(context.device), style(context.graph, context.device)
    {
    }

    QString paint();

private:
    void setDefault(const QString &name, const QString &value);
    QMarginsF margins(const DotSubgraph *subgraph) const;
    Level tiled(DotSubgraph *subgraph, const QRectF &rect) const;
    void paintLevels(const QRectF &rect);
    void paintNode(DotNode *node, const QRectF &cell);
    bool mayHoldLabel(const QRectF &cell, const DotNode *node);
    QRectF paintSubgraph(DotSubgraph *subgraph, const QRectF &cell);
    void drawCell(const QRectF &cell, Device::Pen *pen, Device::Color *fill);

    DotGraph *graph;
    Device *device;
    GraphStyle style;
    const Device::Font *lastFont = nullptr;
    int lastLineHeight = 0; // of `lastFont`
};

// Whether every character has its glyph in any font for Latin.
bool isPlainLatin(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(),
                       [](QChar c) { return (c >= u' ' && c <= u'~') || c == u'\n'; });
}

double centred(double start, double room, double size)
{
    return start + (room - size) * 0.5;
}

QString Painter::paint()
{
    DotSubgraph *root = graph->root();
    sumArea(graph, root);
    setDefault(widthName, defaultWidth);
    setDefault(heightName, defaultHeight);
    graph->setGraphAttribute(root, xName, u"0"_s);
    graph->setGraphAttribute(root, yName, u"0"_s);
    QRect rect = chartRect(0, 0, truncated(numberFrom(graph->graphAttribute(root, widthName))),
                           truncated(numberFrom(graph->graphAttribute(root, heightName))));

    DotSubgraph *legend = findLegend(root);
    const QSize size = placeLegend(graph, rect, legend, style);
    device->begin(size.width(), size.height());
    paintLevels(QRectF(rect));
    drawLegend(device, graph, style, legend);
    return device->end();
}

void Painter::setDefault(const QString &name, const QString &value)
{
    DotSubgraph *root = graph->root();
    if (!root->attributes.contains(name))
        graph->setGraphAttribute(root, name, value);
}

QMarginsF Painter::margins(const DotSubgraph *subgraph) const
{
    const QString text = graph->graphAttribute(subgraph, marginName);
    if (text.isEmpty())
        return {defaultMargin, defaultMargin, defaultMargin, defaultMargin};
    const NumberPair pair = numberPairFrom(text);
    return {pair.first, pair.last, pair.first, pair.last};
}

// What of a subgraph is large enough to be drawn, and where.
Level Painter::tiled(DotSubgraph *subgraph, const QRectF &rect) const
{
    Level level;
    if (!rect.isValid())
        return level;
    level.items = chartItems(graph, subgraph, false);
    double total = numberFrom(graph->graphAttribute(subgraph, areaName));
    const double room = rect.width() * rect.height();
    // Whatever is left out raises the share of the others. A share that is not a number, as of a
    // total of zero, counts as too small.
    qsizetype kept = level.items.size();
    for (; kept > 0; --kept) {
        const double smallest = level.items.at(kept - 1).area;
        if (room * smallest / total >= smallestCell)
            break;
        total -= smallest;
    }
    level.items.resize(kept);

    QList<double> values;
    values.reserve(kept);
    for (const ChartItem &item : std::as_const(level.items))
        values.append(room * item.area / total);
    level.cells = squarify(values, rect);
    return level;
}

void Painter::paintLevels(const QRectF &rect)
{
    QList<Level> open{tiled(graph->root(), rect)};
    while (!open.isEmpty()) {
        Level &level = open.last();
        if (level.next == level.items.size()) {
            if (level.subgraph)
                device->endCluster();
            open.removeLast();
            continue;
        }
        const QRectF cell = level.cells.at(level.next);
        const ChartItem item = level.items.at(level.next++);
        if (!cell.isValid())
            continue;
        if (item.node) {
            paintNode(item.node, cell);
        } else {
            const QRectF inner = paintSubgraph(item.subgraph, cell);
            Level members = tiled(item.subgraph, inner);
            members.subgraph = item.subgraph;
            open.append(std::move(members));
        }
    }
}

// Whether it is worth measuring the node's label. Most cells of a large map are lower than a line
// of text, and measuring all the labels would take longer than all the rest. No text is less high
// than a blank, unless another font with smaller letters lends it all of its glyphs.
bool Painter::mayHoldLabel(const QRectF &cell, const DotNode *node)
{
    const QString label = style.nodeAttribute(node, labelName);
    if (label.isEmpty())
        return false;
    if (!isPlainLatin(label))
        return true;
    const Device::Font *font = style.nodeFont(node);
    if (font != lastFont) {
        lastFont = font;
        lastLineHeight = TextImage::textSize(u" "_s, font, false).height();
    }
    return lastLineHeight < cell.height();
}

void Painter::paintNode(DotNode *node, const QRectF &cell)
{
    device->beginNode(node);
    drawCell(cell, style.nodePen(node), style.nodeFill(node, &cell));
    if (mayHoldLabel(cell, node)) {
        const TextBlock label = style.nodeLabel(node);
        if (!label.isEmpty() && label.width < cell.width() && label.height < cell.height())
            TextBlock::draw(label,
                            {rounded(centred(cell.x(), cell.width(), label.width)),
                             rounded(centred(cell.y(), cell.height(), label.height))},
                            device);
    }
    device->endNode();
}

// Begins the subgraph's object and paints its own cell. Returns the room for its members, from
// which its label is taken whether or not it was drawn.
QRectF Painter::paintSubgraph(DotSubgraph *subgraph, const QRectF &cell)
{
    device->beginCluster(subgraph, true);
    drawCell(cell, style.clusterPen(subgraph), style.clusterFill(subgraph, &cell));
    QMarginsF inner = margins(subgraph);
    const TextBlock label = style.clusterLabel(subgraph);
    if (!label.isEmpty()) {
        if (label.width < cell.width() && label.height < cell.height() - inner.top())
            TextBlock::draw(label,
                            {rounded(centred(cell.x(), cell.width(), label.width)),
                             rounded(cell.y() + inner.top() * 0.5)},
                            device);
        inner.setTop(inner.top() + label.height);
    }
    return cell.marginsRemoved(inner);
}

void Painter::drawCell(const QRectF &cell, Device::Pen *pen, Device::Color *fill)
{
    device->drawRect({rounded(cell.left()), rounded(cell.top())},
                     {rounded(cell.right()), rounded(cell.bottom())}, 0, pen, fill);
}

} // namespace

QString Treemap::run(const LayoutContext &context)
{
    return Painter(context).paint();
}

} // namespace ORR::Graph::Layout
