#include "device/text_block.h"

#include "device/text_image.h"
#include "graph/numbers.h"

namespace ORR::Graph {

namespace {

int lineStart(const TextBlock &block, const TextBlockLine &line, int left)
{
    const int room = block.width - line.width;
    switch (line.alignment) {
    case TextBlockLine::Left:
        return left;
    case TextBlockLine::Right:
        return saturated(qint64(left) + room);
    case TextBlockLine::Centre:
        break;
    }
    return truncated(room * 0.5 + left);
}

} // namespace

void TextBlock::draw(const TextBlock &block, QPoint topLeft, Device *device)
{
    if (block.lines.isEmpty())
        return;
    if (block.lines.size() == 1) {
        device->drawText(topLeft, block.lines.constFirst().text);
        return;
    }
    const int leading = TextImage::fontLeading(block.lines.constFirst().text->font());
    qint64 offset = 0;
    for (const TextBlockLine &line : block.lines) {
        const QPoint position(lineStart(block, line, topLeft.x()), saturated(topLeft.y() + offset));
        device->drawText(position, line.text);
        offset += qint64(leading) + line.height;
    }
}

} // namespace ORR::Graph
