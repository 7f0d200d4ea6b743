#pragma once

#include "device/device.h"

namespace ORR::Companion {

// Draws nothing and has no page, for whoever only listens to what would be drawn.
class SilentDevice : public Graph::Device
{
public:
    void begin(int width, int height) override;
    QString end() override;
    void drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill) override;
    void drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill) override;
    void drawPolyline(const QList<QPoint> &points, Pen *pen) override;
    void drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill) override;
    void drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill) override;
    void drawText(QPoint topLeft, Text *text) override;
    void drawRichText(QPoint topLeft, Text *text) override;
    Path *createPath() override;
    void drawPath(Path *path, Pen *pen, Color *fill) override;
};

} // namespace ORR::Companion
