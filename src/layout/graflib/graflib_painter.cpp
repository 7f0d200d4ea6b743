#include "layout/graflib/graflib_painter.h"

#include "device/text_image.h"
#include "graph/attribute_values.h"
#include "graph/numbers.h"
#include "graph/subgraph_walk.h"
#include "layout/graflib/graflib_names.h"
#include "layout/graflib/polyline_text.h"

#include <utility>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;

namespace {

constexpr int doubleGap = 2; // between the two lines of a double outline
constexpr int arrowLength = 6;
constexpr int arrowHalfWidth = 3;
constexpr double expanderOverlap = 3.0; // of the glyph and its node

const QString frameId = u"tmp"_s;
const QString rectangleName = u"rectangle"_s;
const QString expanderFont = u"Arial"_s;

constexpr char16_t expanderGlyph = 0x2B24; // a large black circle

// The link target is what viewers of these drawings listen for.
QString expanderHtml(const QString &color)
{
    return "<a style=\"color: "_L1 + color.toHtmlEscaped()
        + "; text-decoration: none;\" href=\"16384\">&#11044;</a>"_L1;
}

bool isTrue(const QString &value)
{
    return value == "true"_L1;
}

bool isDouble(const QString &peripheries)
{
    return peripheries == "2"_L1;
}

// The triangle at the last point of an edge. It lies horizontally whatever the edge does; where the
// last run is vertical on the page its tip still points to the left. That is meant.
QList<QPoint> arrow(QPoint tip, QPoint before)
{
    const int step = before.x() < tip.x() ? -arrowLength : arrowLength;
    const int back = saturated(qint64(tip.x()) + step);
    return {tip, QPoint(back, saturated(qint64(tip.y()) - arrowHalfWidth)),
            QPoint(back, saturated(qint64(tip.y()) + arrowHalfWidth)), tip};
}

} // namespace

GraflibPainter::GraflibPainter(DotGraph *dotGraph, Device *drawingDevice)
    : graph(dotGraph), device(drawingDevice), style(dotGraph, drawingDevice)
{
    const int fontSize = integerFrom(graph->graphAttribute(graph->root(), Names::fontSize));
    expanderExtent = saturated(qint64(fontSize) - 3);

    if (device->supportsExpanders()) {
        Device::Color *color =
            device->color(graph->graphAttribute(graph->root(), Names::expandColor));
        Device::Font *font = device->font(expanderFont, fontSize, -1);
        const QSize glyph =
            TextImage::textSize(device->text(QString(QChar(expanderGlyph)), font, color), false);
        glyphWidth = glyph.width();
        glyphHeight = glyph.height();
    }

    const QString rankDir = graph->graphAttribute(graph->root(), Names::rankDir);
    const bool horizontal = rankDir == "LR"_L1 || rankDir == "RL"_L1;
    xAttr = horizontal ? Names::d1 : Names::d2;
    yAttr = horizontal ? Names::d2 : Names::d1;
}

double GraflibPainter::nodeNumber(const DotNode *node, const QString &name) const
{
    return numberFrom(graph->nodeAttribute(node, name));
}

void GraflibPainter::measureNodes(const QList<DotNode *> &nodes, double marginX,
                                  double marginY) const
{
    const int fontSize = integerFrom(graph->graphAttribute(graph->root(), Names::fontSize));
    for (DotNode *node : nodes) {
        const TextBlock label = style.nodeLabel(node);
        double width = label.width;
        double height = label.height;
        width += 2 * marginX;
        height += 2 * marginY;
        if (const auto shape = nodeShapeNamed(graph->nodeAttribute(node, Names::shape))) {
            const bool roundedStyle =
                graph->nodeAttribute(node, Names::style).contains("rounded"_L1);
            width += shapeAllowance(*shape, roundedStyle, fontSize);
        }
        if (isDouble(graph->nodeAttribute(node, Names::peripheries))) {
            width += 2 * doubleGap;
            height += 2 * doubleGap;
        }
        graph->setNodeAttribute(node, Names::width, numberText(width));
        graph->setNodeAttribute(node, Names::height, numberText(height));
    }
}

void GraflibPainter::drawNode(const DotNode *node, int fontSize) const
{
    const auto shape = nodeShapeNamed(graph->nodeAttribute(node, Names::shape));
    if (!shape)
        return;
    NodeBox box;
    box.x0 = nodeNumber(node, xAttr);
    box.y0 = nodeNumber(node, yAttr);
    box.x1 = box.x0 + nodeNumber(node, Names::width);
    box.y1 = box.y0 + nodeNumber(node, Names::height);

    OutlineStyle outline;
    outline.pen = style.nodePen(node);
    outline.fill = style.nodeFill(node, nullptr);
    outline.gap = isDouble(graph->nodeAttribute(node, Names::peripheries)) ? doubleGap : 0;
    outline.rounded = graph->nodeAttribute(node, Names::style).contains("rounded"_L1);
    outline.fontSize = fontSize;
    drawOutline(*shape, box, outline, device);

    if (isTrue(graph->nodeAttribute(node, Names::slash))) {
        device->drawPolyline(
            {QPoint(rounded(box.x0), rounded(box.y1)), QPoint(rounded(box.x1), rounded(box.y0))},
            device->pen(outline.pen->color(), Device::Pen::Solid, 1));
    }
    if (device->supportsExpanders() && isTrue(graph->nodeAttribute(node, Names::expander)))
        drawExpander(box, fontSize);
}

// A round glyph on the edge of the node from which the edges leave.
void GraflibPainter::drawExpander(const NodeBox &box, int fontSize) const
{
    const QString rankDir = graph->graphAttribute(graph->root(), Names::rankDir);
    double x = (box.x1 + box.x0) * 0.5 - glyphWidth * 0.5 - 0.5;
    double y = (box.y1 + box.y0) * 0.5 - glyphHeight * 0.5 - 0.5;
    if (rankDir == "LR"_L1)
        x = box.x1 - expanderOverlap;
    else if (rankDir == "RL"_L1)
        x = box.x0 - glyphWidth + expanderOverlap;
    else if (rankDir == "BT"_L1)
        y = box.y0 - glyphHeight + expanderOverlap;
    else
        y = box.y1 - expanderOverlap;

    const QString color = graph->graphAttribute(graph->root(), Names::expandColor);
    Device::Font *font = device->font(expanderFont, fontSize, -1);
    device->drawRichText(QPoint(rounded(x), rounded(y)),
                         device->text(expanderHtml(color), font, device->color(color)));
}

// The frame is drawn as a node that has the graph's own attributes and inherits from the defaults
// that the nodes in the graph have.
void GraflibPainter::drawFrame(const DotSubgraph *subgraph, int fontSize) const
{
    const QString color = graph->graphAttribute(subgraph, Names::color);
    if (color.isEmpty() || color == "none"_L1)
        return;
    DotNode frame;
    frame.id = frameId;
    frame.owner = const_cast<DotSubgraph *>(subgraph);
    frame.attributes = subgraph->attributes;
    frame.attributes.insert(Names::shape, rectangleName);
    drawNode(&frame, fontSize);
}

void GraflibPainter::drawLabelled(DotNode *node, int fontSize) const
{
    drawNode(node, fontSize);
    const TextBlock label = style.nodeLabel(node);
    if (label.isEmpty())
        return;
    const double x = nodeNumber(node, xAttr);
    const double y = nodeNumber(node, yAttr);
    const double width = nodeNumber(node, Names::width);
    const double height = nodeNumber(node, Names::height);
    TextBlock::draw(label,
                    QPoint(rounded(x + (width - label.width) * 0.5),
                           rounded(y + (height - label.height) * 0.5)),
                    device);
}

void GraflibPainter::drawEdge(DotEdge *edge) const
{
    const auto xs = polylineNumbers(graph->edgeAttribute(edge, xAttr));
    const auto ys = polylineNumbers(graph->edgeAttribute(edge, yAttr));
    if (!xs || !ys)
        return;
    QList<QPoint> points;
    points.reserve(4);
    for (size_t i = 0; i < xs->size(); ++i)
        points.append(QPoint(rounded(xs->at(i)), rounded(ys->at(i))));
    Device::Pen *pen = style.edgePen(edge, false);
    device->drawPolyline(points, pen);
    if (graph->edgeAttribute(edge, Names::arrowhead) == "normal"_L1)
        device->drawPolygon(arrow(points.at(3), points.at(2)), pen, style.edgeFill(edge, nullptr));
}

void GraflibPainter::drawGraph(DotSubgraph *top) const
{
    const int fontSize = integerFrom(graph->graphAttribute(graph->root(), Names::fontSize));
    const auto enter = [&](DotSubgraph *subgraph) {
        if (subgraph != top)
            device->beginCluster(subgraph, false);
        drawFrame(subgraph, fontSize);
        for (DotNode *node : std::as_const(subgraph->nodes)) {
            device->beginNode(node);
            if (!graph->nodeAttribute(node, Names::style).contains("invis"_L1))
                drawLabelled(node, fontSize);
            device->endNode();
        }
        return true;
    };
    const auto leave = [&](DotSubgraph *subgraph) {
        for (DotEdge *edge : std::as_const(subgraph->edges)) {
            device->beginEdge(edge);
            drawEdge(edge);
            device->endEdge();
            device->connect(edge, edge->tail, edge->head);
        }
        if (subgraph != top)
            device->endCluster();
    };
    walkSubgraphs(top, enter, leave);
}

void GraflibPainter::render(QString &result, const QSizeF &size) const
{
    const int along = rounded(size.width());
    const int across = rounded(size.height());
    // `d1` is x: the page is as wide as the layout is long.
    if (xAttr == Names::d1)
        device->begin(along, across);
    else
        device->begin(across, along);
    drawGraph(graph->root());
    result = device->end();
}

} // namespace ORR::Graph::Layout
