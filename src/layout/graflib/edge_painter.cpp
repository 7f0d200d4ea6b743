#include "layout/graflib/edge_painter.h"

#include "graph/numbers.h"
#include "layout/arrow_head.h"
#include "layout/graflib/graflib_attributes.h"

namespace ORR::Graph::Layout {

namespace Rows = GraflibAttributes;

QList<QPoint> arrowTriangle(QPoint tip, QPoint before)
{
    const ArrowHead head = arrowHead(tip, before.x() < tip.x());
    return {tip, head.upper, head.lower, tip};
}

void EdgePainter::draw(const DotEdge *edge) const
{
    const auto xs = axes.lineX().inherited(graph, edge);
    const auto ys = axes.lineY().inherited(graph, edge);
    if (!xs || !ys)
        return;
    QList<QPoint> points;
    points.reserve(4);
    for (size_t i = 0; i < xs->size(); ++i)
        points.append(QPoint(rounded(xs->at(i)), rounded(ys->at(i))));
    Device::Pen *pen = style.edgePen(edge, false);
    device->drawPolyline(points, pen);
    if (Rows::arrowHead.of(graph, edge) == Rows::Normal)
        device->drawPolygon(arrowTriangle(points.at(3), points.at(2)), pen,
                            style.edgeFill(edge, nullptr));
}

} // namespace ORR::Graph::Layout
