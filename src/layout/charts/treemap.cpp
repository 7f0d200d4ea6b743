#include "layout/charts/treemap.h"

#include "attributes/paint_attributes.h"
#include "device/graph_style.h"
#include "device/text_image.h"
#include "graph/numbers.h"
#include "layout/charts/chart_items.h"
#include "layout/charts/chart_legend.h"
#include "layout/charts/chart_rect.h"
#include "layout/charts/treemap_attributes.h"
#include "layout/charts/treemap_tiling.h"

#include <QList>
#include <QMarginsF>

#include <algorithm>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;

namespace {

namespace Rows = TreemapAttributes;

const NumberPair defaultMargin = numberPairFrom(latin1(Rows::margin.byDefault));

// Draws the cells of a tiling with their labels.
class CellPainter
{
public:
    CellPainter(const LayoutContext &context, const GraphStyle &graphStyle)
        : graph(context.graph), device(context.device), style(graphStyle)
    {
    }

    // Draws all that is in the root, whose members get `room`.
    void paint(DotSubgraph *root, const QRectF &room);

private:
    void enter(DotSubgraph *subgraph, const QRectF &room);
    void paintNode(DotNode *node, const QRectF &cell);
    bool mayHoldLabel(const QRectF &cell, const DotNode *node);
    QRectF paintSubgraph(DotSubgraph *subgraph, const QRectF &cell);
    void drawCell(const QRectF &cell, Device::Pen *pen, Device::Color *fill);

    DotGraph *graph;
    Device *device;
    const GraphStyle &style;
    TreemapTiling tiling;
    QList<QList<ChartItem>> open; // the members of the subgraphs that the tiling is in
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

QMarginsF margins(const DotGraph *graph, const DotSubgraph *subgraph)
{
    const QString *text = Rows::margin.find(graph, subgraph);
    const NumberPair pair =
        text && !text->isEmpty() ? Rows::margin.of(graph, subgraph) : defaultMargin;
    return {pair.first, pair.last, pair.first, pair.last};
}

void CellPainter::paint(DotSubgraph *root, const QRectF &room)
{
    enter(root, room);
    while (const auto step = tiling.next()) {
        if (step->kind == TreemapTiling::Step::End) {
            open.removeLast();
            device->endCluster();
            continue;
        }
        const ChartItem item = open.constLast().at(step->member);
        if (item.node)
            paintNode(item.node, step->cell);
        else
            enter(item.subgraph, paintSubgraph(item.subgraph, step->cell));
    }
}

void CellPainter::enter(DotSubgraph *subgraph, const QRectF &room)
{
    QList<ChartItem> items;
    double total = 0.0;
    if (room.isValid()) { // otherwise nothing is to be seen, and not worth reading
        items = chartItems(graph, subgraph, false);
        total = Rows::totalArea.inheritedNumber(graph, subgraph);
    }
    tiling.enter(treemapCells(areasOf(items), total, room));
    open.append(items);
}

// Whether it is worth measuring the node's label. Most cells of a large map are lower than a line
// of text, and measuring all the labels would take longer than all the rest. No text is less high
// than a blank, unless another font with smaller letters lends it all of its glyphs.
bool CellPainter::mayHoldLabel(const QRectF &cell, const DotNode *node)
{
    const QString *label = PaintAttributes::label.find(graph, node);
    if (!label || label->isEmpty())
        return false;
    if (!isPlainLatin(*label))
        return true;
    const Device::Font *font = style.nodeFont(node);
    if (font != lastFont) {
        lastFont = font;
        lastLineHeight = TextImage::textSize(u" "_s, font, false).height();
    }
    return lastLineHeight < cell.height();
}

void CellPainter::paintNode(DotNode *node, const QRectF &cell)
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
QRectF CellPainter::paintSubgraph(DotSubgraph *subgraph, const QRectF &cell)
{
    device->beginCluster(subgraph, true);
    drawCell(cell, style.clusterPen(subgraph), style.clusterFill(subgraph, &cell));
    const QMarginsF inner = margins(graph, subgraph);
    const TextBlock label = style.clusterLabel(subgraph);
    if (!label.isEmpty() && label.width < cell.width()
        && label.height < cell.height() - inner.top())
        TextBlock::draw(label,
                        {rounded(centred(cell.x(), cell.width(), label.width)),
                         rounded(cell.y() + inner.top() * 0.5)},
                        device);
    return roomForMembers(cell, inner, label.height);
}

void CellPainter::drawCell(const QRectF &cell, Device::Pen *pen, Device::Color *fill)
{
    device->drawRect({rounded(cell.left()), rounded(cell.top())},
                     {rounded(cell.right()), rounded(cell.bottom())}, 0, pen, fill);
}

// The page: what the input says of its size, written where it says nothing.
QRect chartOf(DotGraph *graph)
{
    DotSubgraph *root = graph->root();
    if (!Rows::width.isGiven(graph, root))
        Rows::usedWidth.setText(graph, root, latin1(Rows::width.byDefault));
    if (!Rows::height.isGiven(graph, root))
        Rows::usedHeight.setText(graph, root, latin1(Rows::height.byDefault));
    Rows::x.setInteger(graph, root, 0);
    Rows::y.setInteger(graph, root, 0);
    return chartRect(0, 0, truncated(Rows::usedWidth.number(root)),
                     truncated(Rows::usedHeight.number(root)));
}

} // namespace

QString Treemap::run(const LayoutContext &context)
{
    const auto [graph, device] = context;
    DotSubgraph *root = graph->root();
    sumArea(graph, root);
    QRect rect = chartOf(graph);

    const GraphStyle style(graph, device);
    const ChartLegend legend(graph, findLegend(graph), style);
    const QSize size = legend.place(rect);
    device->begin(size.width(), size.height());
    CellPainter(context, style).paint(root, QRectF(rect));
    legend.draw(device);
    return device->end();
}

} // namespace ORR::Graph::Layout
