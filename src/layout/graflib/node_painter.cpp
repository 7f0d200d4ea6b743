#include "layout/graflib/node_painter.h"

#include "graph/numbers.h"
#include "layout/graflib/graflib_attributes.h"
#include "layout/graflib/node_size.h"

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;
namespace Rows = GraflibAttributes;

namespace {

NodeBox boxAt(double x, double y, double width, double height)
{
    return {x, y, x + width, y + height};
}

bool hasFrame(const DotGraph *graph, const DotSubgraph *subgraph)
{
    const QString *color = Rows::frame.find(graph, subgraph);
    return color && !color->isEmpty() && *color != "none"_L1;
}

} // namespace

NodePainter::NodePainter(const LayoutContext &context, const GraphStyle &graphStyle)
    : graph(context.graph), device(context.device), style(graphStyle), axes(context.graph),
      expander(context), fontSize(Rows::fontSize.of(graph, graph->root()))
{
}

NodeBox NodePainter::frameBox(const DotSubgraph *subgraph) const
{
    return boxAt(axes.x().numberOrNodeDefault(graph, subgraph),
                 axes.y().numberOrNodeDefault(graph, subgraph),
                 Rows::width.numberOrNodeDefault(graph, subgraph),
                 Rows::height.numberOrNodeDefault(graph, subgraph));
}

void NodePainter::drawFigure(const Figure &figure, const Paint &paint) const
{
    if (const auto *polygon = std::get_if<Polygon>(&figure))
        device->drawPolygon(*polygon, paint.pen, paint.fill);
    else if (const auto *ellipse = std::get_if<Ellipse>(&figure))
        device->drawEllipse(ellipse->centre, ellipse->rx, ellipse->ry, paint.pen, paint.fill);
    else if (const auto *rect = std::get_if<RoundedRect>(&figure))
        device->drawRect(rect->topLeft, rect->bottomRight, rect->radius, paint.pen, paint.fill);
}

void NodePainter::drawOutline(const OutlineStyle &look, const NodeBox &box,
                              const Paint &paint) const
{
    const auto outline = outlineOf(look, box);
    if (!outline)
        return;
    drawFigure(outline->outer, paint);
    if (outline->inner)
        drawFigure(*outline->inner, {paint.pen, nullptr});
}

// Solid and one wide, whatever the outline's pen is.
void NodePainter::drawSlash(const NodeBox &box, const Device::Pen *pen) const
{
    device->drawPolyline(
        {QPoint(rounded(box.x0), rounded(box.y1)), QPoint(rounded(box.x1), rounded(box.y0))},
        device->pen(pen->color(), Device::Pen::Solid, 1));
}

// What a node has besides its label; nothing for a shape that there is not.
void NodePainter::drawOutlined(const DotNode *node, const NodeBox &box) const
{
    if (Rows::shape.of(graph, node) < 0)
        return;
    const Paint paint{style.nodePen(node), style.nodeFill(node, nullptr)};
    drawOutline(outlineStyle(graph, node, fontSize), box, paint);
    if (Rows::slash.of(graph, node) == Rows::On)
        drawSlash(box, paint.pen);
    if (expander.isWanted() && Rows::expander.of(graph, node) == Rows::On)
        expander.draw(box);
}

void NodePainter::draw(const DotNode *node, const TextBlock &label) const
{
    if (Rows::style.holds(graph, node, Rows::Invisible))
        return;
    const double x = axes.x().inheritedNumber(graph, node);
    const double y = axes.y().inheritedNumber(graph, node);
    const double width = Rows::width.inheritedNumber(graph, node);
    const double height = Rows::height.inheritedNumber(graph, node);
    drawOutlined(node, boxAt(x, y, width, height));
    if (!label.isEmpty())
        TextBlock::draw(label,
                        QPoint(rounded(x + (width - label.width) * 0.5),
                               rounded(y + (height - label.height) * 0.5)),
                        device);
}

void NodePainter::drawFrame(const DotSubgraph *subgraph) const
{
    if (!hasFrame(graph, subgraph))
        return;
    const NodeBox box = frameBox(subgraph);
    const QString lines = Rows::frameStyle.of(graph, subgraph);
    const Paint paint{style.penFor(Rows::frameColor.of(graph, subgraph), lines,
                                   Rows::framePenWidth.of(graph, subgraph)),
                      style.paint(Rows::frameFill.of(graph, subgraph), {}, 0.0, nullptr)};
    const OutlineStyle outline{
        .shape = NodeShape::Rectangle,
        .isDouble = Rows::framePeripheries.of(graph, subgraph) == Rows::Double,
        .rounded = Rows::frameStyle.holds(graph, subgraph, Rows::Rounded),
        .fontSize = fontSize,
    };
    drawOutline(outline, box, paint);
    if (Rows::frameSlash.of(graph, subgraph) == Rows::On)
        drawSlash(box, paint.pen);
    if (expander.isWanted() && Rows::frameExpander.of(graph, subgraph) == Rows::On)
        expander.draw(box);
}

} // namespace ORR::Graph::Layout
