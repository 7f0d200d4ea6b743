#include "output/painter_path.h"

#include "graph/numbers.h"
#include "output/pixel_rect.h"

#include <cmath>

namespace ORR::Graph {

namespace {

bool isFinite(const QPointF &point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

QPoint truncatedPoint(const QPointF &point)
{
    return {truncated(point.x()), truncated(point.y())};
}

} // namespace

void PainterPath::moveTo(const QPointF &point)
{
    if (isFinite(point))
        outline.moveTo(point);
}

void PainterPath::lineTo(const QPointF &point)
{
    if (isFinite(point))
        outline.lineTo(point);
}

void PainterPath::closeSubpath()
{
    outline.closeSubpath();
}

void PainterPath::cubicTo(const QPointF &c1, const QPointF &c2, const QPointF &end)
{
    if (isFinite(c1) && isFinite(c2) && isFinite(end))
        outline.cubicTo(c1, c2, end);
}

void PainterPath::quadTo(const QPointF &c, const QPointF &end)
{
    if (isFinite(c) && isFinite(end))
        outline.quadTo(c, end);
}

void PainterPath::arcTo(const QPointF &topLeft, const QPointF &bottomRight, double startAngle,
                        double sweepAngle)
{
    if (!std::isfinite(startAngle) || !std::isfinite(sweepAngle))
        return;
    outline.arcTo(pixelRect(truncatedPoint(topLeft), truncatedPoint(bottomRight)), startAngle,
                  sweepAngle);
}

} // namespace ORR::Graph
