#include "output/xdot_path.h"

#include "graph/numbers.h"

namespace ORR::Graph {

using namespace Qt::StringLiterals;

QString XDotPath::pointText(const QPointF &point) const
{
    return u' ' + numberText(point.x()) + u' ' + numberText(height - point.y());
}

void XDotPath::record(const QPointF &point)
{
    points.append({rounded(point.x()), rounded(point.y())});
}

void XDotPath::moveTo(const QPointF &point)
{
    ops.append(u'M' + pointText(point));
    record(point);
}

void XDotPath::lineTo(const QPointF &point)
{
    ops.append(u'L' + pointText(point));
    record(point);
}

void XDotPath::closeSubpath()
{
    ops.append(u"Z"_s);
}

void XDotPath::cubicTo(const QPointF &c1, const QPointF &c2, const QPointF &end)
{
    ops.append(u'C' + pointText(c1) + pointText(c2) + pointText(end));
    record(end);
    record(c1);
    record(c1);
}

void XDotPath::quadTo(const QPointF &c, const QPointF &end)
{
    ops.append(u'Q' + pointText(c) + pointText(end));
    record(end);
    record(c);
}

void XDotPath::arcTo(const QPointF &topLeft, const QPointF &bottomRight, double startAngle,
                     double sweepAngle)
{
    ops.append(u'E' + pointText(topLeft) + pointText(bottomRight) + u' ' + numberText(startAngle)
               + u' ' + numberText(sweepAngle));
    record(bottomRight);
    record(topLeft);
}

} // namespace ORR::Graph
