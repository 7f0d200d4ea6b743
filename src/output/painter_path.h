#pragma once

#include "device/device.h"

#include <QPainterPath>

namespace ORR::Graph {

// The path of the raster device. A step with a coordinate or angle that is not finite is left out.
class PainterPath : public Device::Path
{
public:
    const QPainterPath &path() const { return outline; }

    void moveTo(const QPointF &point) override;
    void lineTo(const QPointF &point) override;
    void closeSubpath() override;
    void cubicTo(const QPointF &c1, const QPointF &c2, const QPointF &end) override;
    void quadTo(const QPointF &c, const QPointF &end) override;
    // The corners are truncated to whole pixels, and the ellipse takes in the pixel of the lower
    // right one: it is one wider and higher than the corners are apart.
    void arcTo(const QPointF &topLeft, const QPointF &bottomRight, double startAngle,
               double sweepAngle) override;

private:
    QPainterPath outline;
};

} // namespace ORR::Graph
