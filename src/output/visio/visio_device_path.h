#pragma once

#include "device/device.h"
#include "output/visio/visio_geometry.h"

#include <QList>

namespace ORR::Graph::Visio {

// The path of both Visio devices: a list of geometry rows. Coordinates beyond those of a page are
// brought to its rim, and what is not a number becomes 0.
class DevicePath : public Device::Path
{
public:
    QList<VisioRow> rows;

    void moveTo(const QPointF &point) override;
    void lineTo(const QPointF &point) override;
    // A line back to the first row's point, unless the last row is there.
    void closeSubpath() override;
    void cubicTo(const QPointF &c1, const QPointF &c2, const QPointF &end) override;
    void quadTo(const QPointF &c, const QPointF &end) override;
    // Cut at every quarter turn, so that each row's arc lies in one quadrant.
    void arcTo(const QPointF &topLeft, const QPointF &bottomRight, double startAngle,
               double sweepAngle) override;

private:
    struct Ellipse
    {
        QPointF centre;
        double rx;
        double ry;
    };

    void append(QPointF point, VisioRow::Kind kind, double extra);
    void arc(const Ellipse &ellipse, double start, double sweep, double end);
};

} // namespace ORR::Graph::Visio
