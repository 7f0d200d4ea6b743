#include "output/painter_device.h"

#include "output/painter_path.h"
#include "output/painter_values.h"
#include "output/pixel_rect.h"

namespace ORR::Graph {

void PainterDevice::drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill)
{
    if (!painter)
        return;
    setPaint(pen, fill);
    painter->drawEllipse(QPointF(centre), qreal(rx), qreal(ry));
}

void PainterDevice::drawPolyline(const QList<QPoint> &points, Pen *pen)
{
    if (!painter)
        return;
    setPaint(pen, nullptr);
    for (qsizetype i = 1; i < points.size(); ++i)
        painter->drawLine(points.at(i - 1), points.at(i));
}

void PainterDevice::drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    if (!painter)
        return;
    setPaint(pen, fill);
    painter->drawPolygon(points.constData(), static_cast<int>(points.size()), Qt::OddEvenFill);
}

void PainterDevice::drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill)
{
    if (!painter)
        return;
    setPaint(pen, fill);
    painter->drawRoundedRect(pixelRect(topLeft, bottomRight), radius, radius, Qt::AbsoluteSize);
}

void PainterDevice::drawText(QPoint topLeft, Text *text)
{
    if (!painter || !text || text->text().isEmpty())
        return;
    const Font *font = text->font() ? text->font() : defaultFont();
    const QSize size = sizeOfText(text);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(text->color() ? QPen(painterColor(text->color())) : QPen());
    painter->setFont(font->qFont());
    painter->drawText(QRectF(topLeft, QSizeF(size)), 0, text->text());
}

Device::Path *PainterDevice::createPath()
{
    return new PainterPath;
}

void PainterDevice::drawPath(Path *path, Pen *pen, Color *fill)
{
    const std::unique_ptr<Path> owned(path);
    const auto *painterPath = dynamic_cast<const PainterPath *>(path);
    if (!painterPath || !painter)
        return;
    setPaint(pen, fill);
    painter->drawPath(painterPath->path());
}

// What is painted on has the resolution that fonts are measured for, so that this is the size of
// the painter's own metrics, and layout has mostly asked for it already.
QSize PainterDevice::sizeOfText(const Text *text)
{
    return text->font() ? textSize(text, false) : textSize(text->text(), defaultFont(), false);
}

void PainterDevice::setPaint(const Pen *pen, const Color *fill)
{
    painter->setPen(painterPen(pen));
    painter->setBrush(painterBrush(fill));
}

} // namespace ORR::Graph
