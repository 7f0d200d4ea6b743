#include "companion/syntax/silent_device.h"

namespace ORR::Companion {

namespace {

class SilentPath : public Graph::Device::Path
{
public:
    void moveTo(const QPointF &) override { }
    void lineTo(const QPointF &) override { }
    void closeSubpath() override { }
    void cubicTo(const QPointF &, const QPointF &, const QPointF &) override { }
    void quadTo(const QPointF &, const QPointF &) override { }
    void arcTo(const QPointF &, const QPointF &, double, double) override { }
};

} // namespace

void SilentDevice::begin(int, int) { }

QString SilentDevice::end()
{
    return {};
}

void SilentDevice::drawBezier(const QList<QPoint> &, Pen *, Color *) { }
void SilentDevice::drawEllipse(QPoint, int, int, Pen *, Color *) { }
void SilentDevice::drawPolyline(const QList<QPoint> &, Pen *) { }
void SilentDevice::drawPolygon(const QList<QPoint> &, Pen *, Color *) { }
void SilentDevice::drawRect(QPoint, QPoint, int, Pen *, Color *) { }
void SilentDevice::drawText(QPoint, Text *) { }
void SilentDevice::drawRichText(QPoint, Text *) { }

Graph::Device::Path *SilentDevice::createPath()
{
    return new SilentPath;
}

void SilentDevice::drawPath(Path *path, Pen *, Color *)
{
    delete path;
}

} // namespace ORR::Companion
