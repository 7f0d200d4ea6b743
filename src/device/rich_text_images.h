#pragma once

#include <QHash>
#include <QObject>
#include <QPixmap>
#include <QStringView>
#include <QTextObjectInterface>

namespace ORR::Graph {

// Whether the address of a picture is one that is ever looked at: `data:` with a PNG or a JPEG.
bool isPictureAddress(QStringView address);

// The pixels of the picture that such an address holds; 0 if there is none within the limits. Only
// the head of the picture is read.
qint64 picturePixels(QStringView address);

// The picture itself; null if there is none within the limits. Only memory is read.
QPixmap pictureFrom(QStringView address);

// Lays out and paints the pictures of a rich text in place of the toolkit's own handler, which
// opens whatever name it can't find among the resources of the document as a file. A picture that
// is not in the text itself is an empty box of the size that its tag gives.
class RichTextImages : public QObject, public QTextObjectInterface
{
public:
    using QObject::QObject;

    // How the toolkit asks for the second base.
    void *qt_metacast(const char *className) override;

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *painter, const QRectF &rect, QTextDocument *document, int position,
                    const QTextFormat &format) override;

private:
    const QPixmap &picture(const QString &address);

    QHash<QString, QPixmap> pictures;
};

} // namespace ORR::Graph
