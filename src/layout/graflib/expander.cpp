#include "layout/graflib/expander.h"

#include "device/text_image.h"
#include "graph/numbers.h"
#include "layout/graflib/graflib_attributes.h"

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;
namespace Rows = GraflibAttributes;

namespace {

constexpr double overlap = 3.0; // of the glyph and its node
constexpr char16_t glyphCharacter = 0x2B24; // a large black circle

const QString glyphFont = u"Arial"_s;

// The link target is what viewers of these drawings listen for.
QString glyphHtml(const QString &color)
{
    return "<a style=\"color: "_L1 + color.toHtmlEscaped()
        + "; text-decoration: none;\" href=\"16384\">&#11044;</a>"_L1;
}

} // namespace

int expanderExtent(const DotGraph *graph)
{
    return saturated(qint64(Rows::fontSize.of(graph, graph->root())) - 3);
}

QPointF expanderPlace(const NodeBox &box, QSize glyph, int direction)
{
    const double x = (box.x1 + box.x0) * 0.5 - glyph.width() * 0.5 - 0.5;
    const double y = (box.y1 + box.y0) * 0.5 - glyph.height() * 0.5 - 0.5;
    switch (direction) {
    case Rows::LeftToRight:
        return {box.x1 - overlap, y};
    case Rows::RightToLeft:
        return {box.x0 - glyph.width() + overlap, y};
    case Rows::BottomToTop:
        return {x, box.y0 - glyph.height() + overlap};
    default:
        return {x, box.y1 - overlap};
    }
}

Expander::Expander(const LayoutContext &context)
    : device(context.device), wanted(device->supportsExpanders()),
      direction(Rows::rankDir.of(context.graph, context.graph->root())),
      fontSize(Rows::fontSize.of(context.graph, context.graph->root()))
{
    if (!wanted)
        return;
    color = Rows::expandColor.of(context.graph, context.graph->root());
    glyph = TextImage::textSize(device->text(QString(QChar(glyphCharacter)),
                                             device->font(glyphFont, fontSize, -1),
                                             device->color(color)),
                                false);
}

void Expander::draw(const NodeBox &box) const
{
    const QPointF place = expanderPlace(box, glyph, direction);
    device->drawRichText(QPoint(rounded(place.x()), rounded(place.y())),
                         device->text(glyphHtml(color), device->font(glyphFont, fontSize, -1),
                                      device->color(color)));
}

} // namespace ORR::Graph::Layout
