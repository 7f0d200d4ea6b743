#include "layout/sequence/grid_object.h"

#include "graph/numbers.h"

namespace ORR::Graph::Layout {

void GridObject::measure(const GraphStyle &style)
{
    elementText = elementLabel(graphElement, objectKind(), style);
}

int GridObject::height() const
{
    return labelRectangle(elementText).height();
}

int GridObject::width() const
{
    return labelRectangle(elementText).width();
}

int GridObject::xOffset() const
{
    return alignedOffset(width(), CellAlign::Centre);
}

int GridObject::yOffset() const
{
    return alignedOffset(height(), CellAlign::Centre);
}

bool GridObject::spansAxis(bool) const
{
    return false;
}

QRect GridObject::bounds(const QList<int> &colPos, const QList<int> &rowPos) const
{
    return gridRect(qint64(colPos.value(gridCol)) + xOffset(),
                    qint64(rowPos.value(gridRow)) + yOffset(), width(), height());
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

void drawLabel(const TextBlock &label, int left, int top, Device *device)
{
    TextBlock::draw(label, saturatedPoint(qint64(left) + labelPadding, qint64(top) + labelPadding),
                    device);
}

} // namespace ORR::Graph::Layout
