#include "output/file.h"

#include "device/point_resolution.h"
#include "graph/limits.h"
#include "graph/numbers.h"
#include "output/painter_values.h"
#include "output/plain_colors.h"

#include <QBuffer>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// The factor that is asked for, or a smaller one that brings a drawing to a size that an image can
// have.
double scaleFor(int width, int height, double wanted)
{
    double scale = wanted;
    // Exact as far as it decides anything, and it can't overflow as an integer would.
    const double byteCount = static_cast<double>(width) * height * 4.0;
    if (byteCount * wanted * wanted > Limits::mostImageBytes)
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

File::File(const OutputTarget &outputTarget, int saveQuality, const DrawingExtras &drawingExtras)
    : target(outputTarget), quality(saveQuality), extras(drawingExtras)
{
}

// The painter goes before what it paints on.
File::~File()
{
    painter.reset();
}

void File::begin(int width, int height)
{
    begun = true;
    painter.reset();
    scale = scaleFor(width, height, extras.scale);
    image = QImage(truncated(width * scale), truncated(height * scale),
                   QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return;
    setPointResolution(&image);
    image.fill(target.name().endsWith(u"png"_s) ? Qt::transparent : Qt::white);
    painter = std::make_unique<QPainter>(&image);
    if (!extras.background.isEmpty())
        painter->fillRect(image.rect(), painterColor(color(extras.background)));
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
    // Only now: painted text would take the resolution for a larger font.
    if (extras.scale != 1.0)
        setPointResolution(&image, scale);
    const QByteArray bytes = encoded(image, target.name(), quality);
    image = QImage();
    if (bytes.isEmpty() || !writeOutput(target, bytes))
        return u"Could not save image to file\n"_s;
    return {};
}

} // namespace ORR::Graph
