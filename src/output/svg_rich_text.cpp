#include "output/svg_rich_text.h"

#include "device/point_resolution.h"
#include "device/rich_text.h"
#include "graph/numbers.h"
#include "output/painter_values.h"
#include "output/svg_fragment.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QPainter>
#include <QPalette>
#include <QSvgGenerator>
#include <QTextDocument>

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

} // namespace

void SvgRichText::drawRichText(QPoint topLeft, Text *text)
{
    if (!out.isOpen() || !text)
        return;
    const Font *font = text->font() ? text->font() : defaultFont();
    const std::unique_ptr<QTextDocument> document =
        richTexts.take(text->text()) ? richTextDocument(text->text(), font->qFont()) : nullptr;
    if (!document) {
        drawText(topLeft, Device::text(withoutMarkup(text->text()), text->font(), text->color()));
        return;
    }
    const QSizeF size = document->documentLayout()->documentSize();
    if (size.isEmpty())
        return;
    const QByteArray svg = paintedAsSvg(*document, size, painterColor(text->color()));
    out << " <g transform=\"translate(" << topLeft.x() << "," << topLeft.y() << ")\">\n"
        << svgFragment(svg, fragmentPrefix()) << "</g>\n";
}

QString SvgRichText::fragmentPrefix()
{
    return {};
}

} // namespace ORR::Graph
