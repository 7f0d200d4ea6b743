#include "device/text_image.h"

#include "device/rich_text.h"
#include "graph/numbers.h"

#include <QAbstractTextDocumentLayout>

namespace ORR::Graph {

namespace {

QSize richSize(const QString &html, const Device::Font *font)
{
    const std::unique_ptr<QTextDocument> document = richTextDocument(html, font->qFont());
    if (!document)
        return font->sizeOf(withoutMarkup(html));
    const QSizeF size = document->documentLayout()->documentSize();
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
    return rich ? richSize(text, font) : font->sizeOf(text);
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
    const QString html = richText->text();
    const QString plain = richTexts.take(html) ? plainTextOf(html) : withoutMarkup(html);
    drawText(topLeft, text(plain, richText->font(), richText->color()));
}

} // namespace ORR::Graph
