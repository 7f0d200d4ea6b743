#include "output/visio/visio_frame.h"

#include "graph/numbers.h"

#include <algorithm>
#include <cmath>

namespace ORR::Graph {

namespace {

QPointF wholePoint(QPointF point)
{
    return {double(rounded(point.x())), double(rounded(point.y()))};
}

} // namespace

VisioAxis::VisioAxis(QPointF begin, QPointF end)
    : from(begin), direction(end - begin), extent(std::hypot(direction.x(), direction.y()))
{
}

double VisioAxis::angle() const
{
    return std::atan2(direction.y(), direction.x());
}

double VisioAxis::along(QPointF point) const
{
    return std::fabs(foot(point)) * extent;
}

double VisioAxis::away(QPointF point) const
{
    const QPointF rest = point - from - direction * foot(point);
    return std::hypot(rest.x(), rest.y());
}

double VisioAxis::side(QPointF point) const
{
    const QPointF rel = point - from;
    return direction.x() * rel.y() - direction.y() * rel.x();
}

double VisioAxis::foot(QPointF point) const
{
    if (extent == 0.0)
        return 0.0;
    return QPointF::dotProduct(point - from, direction) / QPointF::dotProduct(direction, direction);
}

VisioFrame::VisioFrame(const QList<VisioRow> &rows, bool isEdge, int pageHeight, Measure how)
    : measure(how), pageTop(pageHeight), connector(isEdge)
{
    if (!isEdge)
        pinHeight = 0.5;
    if (rows.isEmpty())
        return;
    if (isEdge)
        frameConnector(rows);
    else
        frameBox(rows);
}

QPointF VisioFrame::position(QPointF devicePoint) const
{
    const QPointF point = onPage(devicePoint);
    if (!connector)
        return point - corner;
    return {axis.along(point), across(axis, point) + lineOffset};
}

void VisioFrame::frameConnector(const QList<VisioRow> &rows)
{
    const auto measured = [this](const VisioRow &row) {
        return onPage(measure == Whole ? wholePoint(row.point()) : row.point());
    };
    axis = VisioAxis(onPage(rows.constFirst().point()), onPage(rows.constLast().point()));
    const VisioAxis line(measured(rows.constFirst()), measured(rows.constLast()));
    double low = 0.0;
    double high = 0.0;
    for (const VisioRow &row : rows) {
        const double value = across(line, measured(row));
        low = std::min(low, value);
        high = std::max(high, value);
    }
    lineOffset = 0.0 - low;
    extentX = axis.length();
    extentY = high - low;
    middle = axis.middle();
    turn = axis.angle();
    pinHeight = yShare(lineOffset);
}

void VisioFrame::frameBox(const QList<VisioRow> &rows)
{
    corner = onPage(rows.constFirst().point());
    QPointF far = corner;
    for (const VisioRow &row : rows) {
        const QPointF point = onPage(row.point());
        corner = {std::min(corner.x(), point.x()), std::min(corner.y(), point.y())};
        far = {std::max(far.x(), point.x()), std::max(far.y(), point.y())};
    }
    extentX = far.x() - corner.x();
    extentY = far.y() - corner.y();
    middle = (corner + far) * 0.5;
}

double VisioFrame::across(const VisioAxis &line, QPointF pagePoint) const
{
    const double distance = line.away(pagePoint);
    const double side = line.side(pagePoint);
    return (measure == Whole ? truncated(side) : side) < 0.0 ? -distance : distance;
}

} // namespace ORR::Graph
