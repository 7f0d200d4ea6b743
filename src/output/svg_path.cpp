#include "output/svg_path.h"

#include "device/ellipse.h"
#include "graph/decimal.h"

#include <cmath>

namespace ORR::Graph {

void SvgPath::moveTo(const QPointF &point)
{
    append(" M", point);
}

void SvgPath::lineTo(const QPointF &point)
{
    append(" L", point);
}

void SvgPath::closeSubpath()
{
    text.append(" Z");
}

void SvgPath::cubicTo(const QPointF &c1, const QPointF &c2, const QPointF &end)
{
    append(" C", c1);
    append(",", c2);
    append(",", end);
}

void SvgPath::quadTo(const QPointF &c, const QPointF &end)
{
    append(" Q", c);
    append(",", end);
}

void SvgPath::arcTo(const QPointF &topLeft, const QPointF &bottomRight, double startAngle,
                    double sweepAngle)
{
    if (std::fabs(sweepAngle) == 360.0) {
        const double half = sweepAngle * 0.5;
        arcTo(topLeft, bottomRight, startAngle, half);
        arcTo(topLeft, bottomRight, startAngle + half, half);
        return;
    }
    const double rx = (bottomRight.x() - topLeft.x()) * 0.5;
    const double ry = (bottomRight.y() - topLeft.y()) * 0.5;
    const QPointF centre(topLeft.x() + rx, topLeft.y() + ry);
    const QPointF end = pointOnEllipse(centre, rx, ry, startAngle + sweepAngle);
    const bool isLarge = sweepAngle > 180.0 || sweepAngle < -180.0;
    append(" A", {rx, ry});
    text.append(" 0");
    text.append(isLarge ? " 1" : " 0");
    text.append(sweepAngle < 0 ? " 1" : " 0");
    append("", end);
}

void SvgPath::append(const char *step, const QPointF &point)
{
    text.append(step);
    append(point.x());
    append(point.y());
}

void SvgPath::append(double number)
{
    text.append(' ');
    appendNumber(text, number);
}

} // namespace ORR::Graph
