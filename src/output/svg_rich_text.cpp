#include "output/svg_rich_text.h"

#include "device/point_resolution.h"
#include "graph/numbers.h"
#include "output/painter_values.h"
#include "output/xml_text.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QPainter>
#include <QPalette>
#include <QSvgGenerator>
#include <QTextDocument>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

QByteArray paintedAsSvg(QTextDocument &document, const QSizeF &size, const QColor &color)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setResolution(pointsPerInch);
        generator.setSize({truncated(size.width()), truncated(size.height())});
        generator.setViewBox(QRectF(QPointF(), size));
        QPainter painter(&generator);
        painter.setPen(color);
        painter.setBrush(color);
        QAbstractTextDocumentLayout::PaintContext context;
        context.palette.setBrush(QPalette::All, QPalette::Text, color);
        document.documentLayout()->draw(&painter, context);
        painter.end();
    } // the generator completes the text only now
    return bytes;
}

bool usesLinks(const QXmlStreamAttributes &attributes)
{
    return std::any_of(attributes.cbegin(), attributes.cend(), [](const auto &attribute) {
        return attribute.qualifiedName().startsWith("xlink:"_L1);
    });
}

// Copies what lies within the root element of an SVG text, without its title and description.
class FragmentCopy
{
public:
    explicit FragmentCopy(const QString &svg) : reader(svg), writer(&fragment)
    {
        reader.setNamespaceProcessing(false);
    }

    // Up to the end of the text or to its first fault; elements that a fault leaves open are
    // closed.
    QString take()
    {
        while (!reader.atEnd()) {
            reader.readNext();
            if (reader.hasError())
                break;
            copyToken();
        }
        for (; copiedDepth > 0; --copiedDepth)
            writer.writeEndElement();
        return fragment;
    }

private:
    static constexpr int unset = -1;
    static constexpr int childDepth = 2; // of the root's own children

    void copyToken()
    {
        switch (reader.tokenType()) {
        case QXmlStreamReader::StartDocument:
        case QXmlStreamReader::EndDocument:
            break;
        case QXmlStreamReader::StartElement:
            startElement();
            break;
        case QXmlStreamReader::EndElement:
            endElement();
            break;
        default:
            if (isCopying())
                writer.writeCurrentToken(reader);
        }
    }

    void startElement()
    {
        ++depth;
        if (skipDepth == unset && depth == childDepth
            && (reader.qualifiedName() == "title"_L1 || reader.qualifiedName() == "desc"_L1))
            skipDepth = depth;
        if (!isCopying())
            return;
        writer.writeCurrentToken(reader);
        ++copiedDepth;
        // The declaration stood on the root, which is gone.
        if (usesLinks(reader.attributes()))
            writer.writeAttribute(u"xmlns:xlink"_s, u"http://www.w3.org/1999/xlink"_s);
    }

    void endElement()
    {
        if (isCopying()) {
            writer.writeCurrentToken(reader);
            --copiedDepth;
        } else if (depth == skipDepth) {
            skipDepth = unset;
        }
        --depth;
    }

    bool isCopying() const { return skipDepth == unset && depth >= childDepth; }

    QXmlStreamReader reader;
    QString fragment;
    QXmlStreamWriter writer;
    int depth = 0;
    int skipDepth = unset;
    int copiedDepth = 0;
};

} // namespace

void SvgRichText::drawRichText(QPoint topLeft, Text *text)
{
    if (!out.isOpen() || !text)
        return;
    const Font *font = text->font() ? text->font() : defaultFont();
    QTextDocument document;
    document.setDocumentMargin(0.0);
    document.documentLayout()->setPaintDevice(pointDevice());
    document.setDefaultFont(font->qFont());
    document.setHtml(text->text());
    const QSizeF size = document.documentLayout()->documentSize();
    if (size.isEmpty())
        return;
    const QByteArray svg = paintedAsSvg(document, size, painterColor(text->color()));
    FragmentCopy fragment(withoutForbiddenXml(QString::fromUtf8(svg)));
    out << " <g transform=\"translate(" << topLeft.x() << "," << topLeft.y() << ")\">\n"
        << fragment.take().toUtf8() << "</g>\n";
}

} // namespace ORR::Graph
