#include "output/visio/visio_device_path.h"

#include "device/ellipse.h"

#include <QtNumeric>

#include <array>
#include <limits>
#include <optional>

namespace ORR::Graph::Visio {

namespace {

constexpr double cubicDegree = 3.0;
constexpr double quadraticDegree = 2.0;

double withinPage(double coordinate)
{
    constexpr double rim = std::numeric_limits<int>::max();
    return qIsNaN(coordinate) ? 0.0 : qBound(-rim, coordinate, rim);
}

QPointF withinPage(QPointF point)
{
    return {withinPage(point.x()), withinPage(point.y())};
}

// The first quarter turn, by its angle, that lies between start and end.
std::optional<double> quarterTurnWithin(double start, double sweep, double end)
{
    constexpr std::array quarterTurns{-360.0, -270.0, -180.0, -90.0, 0.0,
                                      90.0,   180.0,  270.0,  360.0};
    for (const double turn : quarterTurns) {
        if (sweep > 0.0 ? turn > start && turn < end : turn > end && turn < start)
            return turn;
    }
    return std::nullopt;
}

} // namespace

void DevicePath::moveTo(const QPointF &point)
{
    append(point, VisioRow::MoveTo, 0.0);
}

void DevicePath::lineTo(const QPointF &point)
{
    append(point, VisioRow::LineTo, 0.0);
}

void DevicePath::closeSubpath()
{
    if (!rows.isEmpty() && !rows.constFirst().samePoint(rows.constLast()))
        append(rows.constFirst().point(), VisioRow::LineTo, 0.0);
}

void DevicePath::cubicTo(const QPointF &c1, const QPointF &c2, const QPointF &end)
{
    append(c1, VisioRow::SplineStart, cubicDegree);
    append(c2, VisioRow::SplineKnot, cubicDegree);
    append(end, VisioRow::SplineKnot, cubicDegree);
}

void DevicePath::quadTo(const QPointF &c, const QPointF &end)
{
    append(c, VisioRow::SplineStart, quadraticDegree);
    append(end, VisioRow::SplineKnot, quadraticDegree);
}

void DevicePath::arcTo(const QPointF &topLeft, const QPointF &bottomRight, double startAngle,
                       double sweepAngle)
{
    const QPointF from = withinPage(topLeft);
    const QPointF to = withinPage(bottomRight);
    const Ellipse ellipse{(from + to) * 0.5, (to.x() - from.x()) * 0.5, (to.y() - from.y()) * 0.5};
    arc(ellipse, startAngle, sweepAngle, startAngle + sweepAngle);
}

void DevicePath::append(QPointF point, VisioRow::Kind kind, double extra)
{
    rows.append(VisioRow::of(withinPage(point), kind, extra));
}

// `end` is start + sweep but for a rounding: a part that ends at a cut must not be taken to go
// beyond it and be cut there again.
void DevicePath::arc(const Ellipse &ellipse, double start, double sweep, double end)
{
    if (const std::optional<double> cut = quarterTurnWithin(start, sweep, end)) {
        arc(ellipse, start, *cut - start, *cut);
        arc(ellipse, *cut, end - *cut, end);
        return;
    }
    // A flat ellipse has no ratio. The least height in its place gives the same points without
    // dividing by zero.
    const double ry = ellipse.ry == 0.0 ? std::numeric_limits<double>::min() : ellipse.ry;
    const double ratio = ellipse.ry == 0.0 ? 0.0 : ellipse.rx / ellipse.ry;
    append(pointOnEllipse(ellipse.centre, ellipse.rx, ry, start + sweep), VisioRow::EllipticalArcTo,
           0.0);
    append(pointOnEllipse(ellipse.centre, ellipse.rx, ry, start + sweep * 0.5),
           VisioRow::ArcControl, ratio);
}

} // namespace ORR::Graph::Visio
