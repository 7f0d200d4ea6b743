#include "output/file.h"

#include "device/point_resolution.h"
#include "graph/limits.h"
#include "graph/numbers.h"
#include "output/painter_path.h"
#include "output/painter_values.h"
#include "output/pixel_rect.h"
#include "output/plain_colors.h"

#include <QBuffer>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// The factor that brings a drawing to a size that an image can have.
double scaleFor(int width, int height)
{
    double scale = 1.0;
    // Exact as far as it decides anything, and it can't overflow as an integer would.
    const double byteCount = static_cast<double>(width) * height * 4.0;
    if (byteCount > Limits::mostImageBytes)
        scale = std::sqrt(Limits::mostImageBytes / byteCount);
    const int longer = std::max(width, height);
    if (longer * scale > Limits::longestImageSide)
        scale = Limits::longestImageSide / longer;
    return scale;
}

QByteArray encoded(const QImage &image, const QString &fileName, int quality)
{
    const QByteArray format = QFileInfo(fileName).suffix().toLower().toLatin1();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, format.constData(), quality))
        return {};
    return bytes;
}

} // namespace

File::File(const OutputTarget &outputTarget, int saveQuality)
    : target(outputTarget), quality(saveQuality)
{
}

void File::begin(int width, int height)
{
    begun = true;
    painter.reset();
    const double scale = scaleFor(width, height);
    image = QImage(truncated(width * scale), truncated(height * scale),
                   QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return;
    setPointResolution(&image);
    image.fill(target.name().endsWith(u"png"_s) ? Qt::transparent : Qt::white);
    // One painter for all primitives; each of them sets every value that it depends on.
    painter = std::make_unique<QPainter>(&image);
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->scale(scale, scale);
}

QString File::end()
{
    if (!begun)
        return u"Draw too large\n"_s;
    begun = false;
    painter.reset();
    makeColorsPlain(&image);
    const QByteArray bytes = encoded(image, target.name(), quality);
    image = QImage();
    if (bytes.isEmpty() || !writeOutput(target, bytes))
        return u"Could not save image to file\n"_s;
    return {};
}

void File::drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill)
{
    if (!painter)
        return;
    setPaint(pen, fill);
    painter->drawEllipse(QPointF(centre), qreal(rx), qreal(ry));
}

void File::drawPolyline(const QList<QPoint> &points, Pen *pen)
{
    if (!painter)
        return;
    setPaint(pen, nullptr);
    for (qsizetype i = 1; i < points.size(); ++i)
        painter->drawLine(points.at(i - 1), points.at(i));
}

void File::drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    if (!painter)
        return;
    setPaint(pen, fill);
    painter->drawPolygon(points.constData(), static_cast<int>(points.size()), Qt::OddEvenFill);
}

void File::drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill)
{
    if (!painter)
        return;
    setPaint(pen, fill);
    painter->drawRoundedRect(pixelRect(topLeft, bottomRight), radius, radius, Qt::AbsoluteSize);
}

void File::drawText(QPoint topLeft, Text *text)
{
    if (!painter || !text || text->text().isEmpty())
        return;
    const Font *font = text->font() ? text->font() : defaultFont();
    // The image has the resolution that fonts are measured for, so that this is the size of the
    // painter's own metrics, and layout has mostly asked for it already.
    const QSize size = text->font() ? textSize(text, false) : textSize(text->text(), font, false);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(text->color() ? QPen(painterColor(text->color())) : QPen());
    painter->setFont(font->qFont());
    painter->drawText(QRectF(topLeft, QSizeF(size)), 0, text->text());
}

Device::Path *File::createPath()
{
    return new PainterPath;
}

void File::drawPath(Path *path, Pen *pen, Color *fill)
{
    const std::unique_ptr<Path> owned(path);
    const auto *painterPath = dynamic_cast<const PainterPath *>(path);
    if (!painterPath || !painter)
        return;
    setPaint(pen, fill);
    painter->drawPath(painterPath->path());
}

void File::setPaint(const Pen *pen, const Color *fill)
{
    painter->setPen(painterPen(pen));
    painter->setBrush(painterBrush(fill));
}

} // namespace ORR::Graph
