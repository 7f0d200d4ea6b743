#include "device/text_image.h"

#include "device/point_resolution.h"
#include "graph/numbers.h"

#include <QAbstractTextDocumentLayout>
#include <QTextDocument>

namespace ORR::Graph {

namespace {

QSize richSize(const QString &html, const QFont &font)
{
    QTextDocument document;
    document.setDocumentMargin(0);
    document.documentLayout()->setPaintDevice(pointDevice());
    document.setDefaultFont(font);
    document.setHtml(html);
    const QSizeF size = document.documentLayout()->documentSize();
    return {truncated(size.width()), truncated(size.height())};
}

} // namespace

QSize TextImage::textSize(const Text *text, bool rich)
{
    if (!text)
        return {};
    if (rich)
        return textSize(text->string, text->textFont, true);
    if (!text->plainSize)
        text->plainSize = textSize(text->string, text->textFont, false);
    return *text->plainSize;
}

QSize TextImage::textSize(const QString &text, const Font *font, bool rich)
{
    return rich ? richSize(text, font->qFont()) : font->metrics().size(0, text);
}

int TextImage::fontLeading(const Font *font)
{
    return font->metrics().leading();
}

int TextImage::fontLineSpacing(const Font *font)
{
    return font->metrics().lineSpacing();
}

void TextImage::drawRichText(QPoint topLeft, Text *richText)
{
    if (!richText)
        return;
    QTextDocument document;
    document.setHtml(richText->text());
    drawText(topLeft, text(document.toPlainText(), richText->font(), richText->color()));
}

} // namespace ORR::Graph
