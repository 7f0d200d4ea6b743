#include "device/rich_text_images.h"

#include "graph/limits.h"
#include "graph/numbers.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QGuiApplication>
#include <QImageReader>
#include <QPainter>
#include <QScreen>
#include <QTextDocument>
#include <QtEndian>

#include <algorithm>
#include <optional>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// A picture as it is stored.
struct StoredPicture
{
    const char *format; // of the toolkit's reader
    QByteArray bytes;
};

// The format that the media type of a `data:` address asks for; null for any other address.
const char *formatOf(QStringView address)
{
    constexpr QLatin1StringView scheme = "data:"_L1;
    if (!address.startsWith(scheme, Qt::CaseInsensitive))
        return nullptr;
    QStringView type = address.sliced(scheme.size());
    const auto isEnd = [](QChar c) { return c == u';' || c == u','; };
    type.truncate(std::distance(type.begin(), std::find_if(type.begin(), type.end(), isEnd)));
    if (type.compare("image/png"_L1, Qt::CaseInsensitive) == 0)
        return "png";
    if (type.compare("image/jpeg"_L1, Qt::CaseInsensitive) == 0)
        return "jpeg";
    return nullptr;
}

constexpr QByteArrayView pngSignature("\x89PNG\r\n\x1A\n");

// Without the compressed texts of a PNG, which may be a thousand times as long as what holds them,
// and are not shown.
QByteArray withoutCompressedTexts(const QByteArray &png)
{
    constexpr qsizetype frameSize = 12; // of a chunk: its length, its name, its check sum
    QByteArray kept = pngSignature.toByteArray();
    for (qsizetype pos = kept.size(); png.size() - pos >= frameSize;) {
        const qsizetype length = qFromBigEndian<quint32>(png.constData() + pos);
        if (length > png.size() - pos - frameSize)
            break;
        const QByteArrayView chunk = QByteArrayView(png).sliced(pos, length + frameSize);
        const QByteArrayView name = chunk.sliced(4, 4);
        if (name != "zTXt" && name != "iTXt")
            kept.append(chunk);
        pos += chunk.size();
    }
    return kept;
}

bool isWithinLimits(const StoredPicture &stored)
{
    return stored.bytes.size() <= Limits::largestPicture
        && (stored.format != QByteArrayView("jpeg")
            || stored.bytes.count("\xFF\xDA") <= Limits::mostPictureScans);
}

std::optional<StoredPicture> storedPicture(QStringView address)
{
    const char *const format = formatOf(address);
    const qsizetype comma = format ? address.indexOf(u',') : -1;
    if (comma < 0)
        return std::nullopt;
    const bool isBase64 = address.first(comma).trimmed().endsWith("base64"_L1, Qt::CaseInsensitive);
    const QByteArray plain = QByteArray::fromPercentEncoding(address.sliced(comma + 1).toLatin1());
    StoredPicture stored{format, isBase64 ? QByteArray::fromBase64(plain) : plain};
    if (!isWithinLimits(stored))
        return std::nullopt;
    if (stored.format != QByteArrayView("png"))
        return stored;
    // The library below the toolkit would tell it on standard error.
    if (!stored.bytes.startsWith(pngSignature))
        return std::nullopt;
    stored.bytes = withoutCompressedTexts(stored.bytes);
    return stored;
}

// The reader is not to look for another format than the one that was asked for.
void prepare(QImageReader *reader, QBuffer *buffer, const StoredPicture &stored)
{
    buffer->setData(stored.bytes);
    buffer->open(QIODevice::ReadOnly);
    reader->setAutoDetectImageFormat(false);
    reader->setFormat(stored.format);
    reader->setDevice(buffer);
}

qint64 pixelsOf(const QImageReader &reader)
{
    const QSize size = reader.size();
    const qint64 pixels = qint64(size.width()) * size.height();
    return size.isValid() && pixels <= Limits::mostPicturePixels ? pixels : 0;
}

// The resolution of the layout in relation to the one that sizes of pictures are given for.
double scaleFor(const QTextDocument *document)
{
    const QPaintDevice *device = document->documentLayout()->paintDevice();
    const QScreen *screen = QGuiApplication::primaryScreen();
    return device && screen ? device->logicalDpiY() / screen->logicalDotsPerInchY() : 1.0;
}

} // namespace

bool isPictureAddress(QStringView address)
{
    return formatOf(address) != nullptr;
}

qint64 picturePixels(QStringView address)
{
    const std::optional<StoredPicture> stored = storedPicture(address);
    if (!stored)
        return 0;
    QBuffer buffer;
    QImageReader reader;
    prepare(&reader, &buffer, *stored);
    return pixelsOf(reader);
}

QPixmap pictureFrom(QStringView address)
{
    const std::optional<StoredPicture> stored = storedPicture(address);
    if (!stored)
        return {};
    QBuffer buffer;
    QImageReader reader;
    prepare(&reader, &buffer, *stored);
    return pixelsOf(reader) > 0 ? QPixmap::fromImage(reader.read()) : QPixmap();
}

void *RichTextImages::qt_metacast(const char *className)
{
    if (qstrcmp(className, qobject_interface_iid<QTextObjectInterface *>()) == 0)
        return static_cast<QTextObjectInterface *>(this);
    return QObject::qt_metacast(className);
}

// A size that the tag does not give is that of the picture; if it gives one of the two, the other
// follows the picture's proportions.
QSizeF RichTextImages::intrinsicSize(QTextDocument *document, int, const QTextFormat &format)
{
    const QTextImageFormat image = format.toImageFormat();
    const bool hasWidth = image.hasProperty(QTextFormat::ImageWidth);
    const bool hasHeight = image.hasProperty(QTextFormat::ImageHeight);
    double width = rounded(image.width());
    double height = rounded(image.height());
    const QSizeF own = hasWidth && hasHeight ? QSizeF() : QSizeF(picture(image.name()).size());
    if (!hasWidth && !hasHeight) {
        width = own.width();
        height = own.height();
    } else if (!hasWidth) {
        width = own.isEmpty() ? 0.0 : rounded(height * (own.width() / own.height()));
    } else if (!hasHeight) {
        height = own.isEmpty() ? 0.0 : rounded(width * (own.height() / own.width()));
    }
    return QSizeF(width, height) * scaleFor(document);
}

void RichTextImages::drawObject(QPainter *painter, const QRectF &rect, QTextDocument *, int,
                                const QTextFormat &format)
{
    const QPixmap &shown = picture(format.toImageFormat().name());
    if (!shown.isNull())
        painter->drawPixmap(rect, shown, shown.rect());
}

const QPixmap &RichTextImages::picture(const QString &address)
{
    const auto known = pictures.constFind(address);
    return known != pictures.cend() ? *known : *pictures.insert(address, pictureFrom(address));
}

} // namespace ORR::Graph
