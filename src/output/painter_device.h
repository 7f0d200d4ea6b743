#pragma once

#include "device/text_image.h"

#include <QPainter>
#include <QString>

#include <memory>

namespace ORR::Graph {

// What the devices share that draw with the toolkit's painter. Without a painter nothing is drawn.
class PainterDevice : public TextImage
{
public:
    using TextImage::TextImage;

    void drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill) override;
    // Line by line: there are no joins, and each line starts its dashes anew.
    void drawPolyline(const QList<QPoint> &points, Pen *pen) override;
    void drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill) override;
    void drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill) override;
    void drawText(QPoint topLeft, Text *text) override;
    Path *createPath() override;
    void drawPath(Path *path, Pen *pen, Color *fill) override;

protected:
    // The size of a plain text in its font or, if it has none, in the default one.
    QSize sizeOfText(const Text *text);

    // One painter for all primitives; each of them sets every value that it depends on.
    std::unique_ptr<QPainter> painter;

private:
    void setPaint(const Pen *pen, const Color *fill);
};

} // namespace ORR::Graph
