#include "layout/sequence/grid_object.h"

#include "graph/numbers.h"

namespace ORR::Graph::Layout {

int GridObject::height(const GraphStyle &style) const
{
    return labelRectangle(label(style)).height();
}

int GridObject::width(const GraphStyle &style) const
{
    return labelRectangle(label(style)).width();
}

int GridObject::xOffset(const GraphStyle &style) const
{
    return -(width(style) / 2);
}

int GridObject::yOffset(const GraphStyle &style) const
{
    return -(height(style) / 2);
}

bool GridObject::spansAxis(bool) const
{
    return false;
}

QRect GridObject::bounds(const GraphStyle &style, const QList<int> &colPos,
                         const QList<int> &rowPos) const
{
    return gridRect(qint64(colPos.value(gridCol)) + xOffset(style),
                    qint64(rowPos.value(gridRow)) + yOffset(style), width(style), height(style));
}

const TextBlock &GridObject::label(const GraphStyle &style) const
{
    if (!cachedLabel)
        cachedLabel = elementLabel(graphElement, objectKind(), style);
    return *cachedLabel;
}

TextBlock elementLabel(DotObject *element, int kind, const GraphStyle &style)
{
    if (!element)
        return {};
    switch (kind) {
    case GridObject::NodeKind:
        return style.nodeLabel(static_cast<DotNode *>(element));
    case GridObject::ClusterKind:
        return style.clusterLabel(static_cast<DotSubgraph *>(element));
    case GridObject::EdgeKind:
        return style.edgeLabel(static_cast<DotEdge *>(element));
    default:
        return {};
    }
}

QRect labelRectangle(const TextBlock &label)
{
    if (label.isEmpty())
        return {};
    constexpr qint64 padding = qint64(2) * labelPadding;
    return gridRect(0, 0, saturated(label.width + padding), saturated(label.height + padding));
}

QRect labelRectangle(DotObject *element, int kind, const GraphStyle &style)
{
    return labelRectangle(elementLabel(element, kind, style));
}

QRect gridRect(qint64 left, qint64 top, qint64 width, qint64 height)
{
    return {gridPoint(left, top), gridPoint(left + width - 1, top + height - 1)};
}

QPoint gridPoint(qint64 x, qint64 y)
{
    return {saturated(x), saturated(y)};
}

void drawLabel(const TextBlock &label, int left, int top, Device *device)
{
    TextBlock::draw(label, gridPoint(qint64(left) + labelPadding, qint64(top) + labelPadding),
                    device);
}

} // namespace ORR::Graph::Layout
