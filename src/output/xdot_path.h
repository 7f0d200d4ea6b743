#pragma once

#include "device/device.h"

#include <QList>
#include <QPoint>
#include <QStringList>

namespace ORR::Graph {

// The path of the xdot device: the ops as text, with y upward from the bottom of the page, and the
// points that the bounds of the object are to hold.
class XDotPath : public Device::Path
{
public:
    explicit XDotPath(int pageHeight) : height(pageHeight) { }

    // All ops with a blank between.
    QString text() const { return ops.join(u' '); }
    // Points of the page, y downward. The choice is a coarse one and meant so: of a curve the end
    // and the first control point count (of a cubic one twice), of an arc the corners.
    const QList<QPoint> &boundingPoints() const { return points; }

    void moveTo(const QPointF &point) override;
    void lineTo(const QPointF &point) override;
    void closeSubpath() override;
    void cubicTo(const QPointF &c1, const QPointF &c2, const QPointF &end) override;
    void quadTo(const QPointF &c, const QPointF &end) override;
    void arcTo(const QPointF &topLeft, const QPointF &bottomRight, double startAngle,
               double sweepAngle) override;

private:
    QString pointText(const QPointF &point) const;
    void record(const QPointF &point);

    int height;
    QStringList ops;
    QList<QPoint> points;
};

} // namespace ORR::Graph
