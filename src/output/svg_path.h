#pragma once

#include "device/device.h"

#include <QByteArray>

namespace ORR::Graph {

// The path of the SVG devices: builds the text of a path element as the outline is walked.
class SvgPath : public Device::Path
{
public:
    // The path data so far. Each step starts with a blank.
    const QByteArray &data() const { return text; }

    void moveTo(const QPointF &point) override;
    void lineTo(const QPointF &point) override;
    void closeSubpath() override;
    void cubicTo(const QPointF &c1, const QPointF &c2, const QPointF &end) override;
    void quadTo(const QPointF &c, const QPointF &end) override;
    // Draws on from where the pen is, which has to be the start point of the arc: there is no move
    // to it. A full turn becomes two halves, since an arc of the format can't close on itself.
    void arcTo(const QPointF &topLeft, const QPointF &bottomRight, double startAngle,
               double sweepAngle) override;

private:
    void append(const char *step, const QPointF &point);
    void append(double number);

    QByteArray text;
};

} // namespace ORR::Graph
