#include "device/graph_style.h"

#include "attributes/paint_attributes.h"
#include "device/ellipse.h"
#include "device/text_image.h"
#include "graph/numbers.h"

#include <algorithm>
#include <cmath>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

namespace Rows = PaintAttributes;

// Below this width or height an area is too small to show a gradient.
constexpr double smallestGradient = 2.0;

const int defaultPenWidth = integerFrom(latin1(Rows::penWidth.byDefault));

// How far the focus of a radial gradient lies from the centre, as a part of its radius.
constexpr double focusDistance = 0.75;

// The alignment that the escape at `position` asks for, if there is one.
std::optional<TextBlockLine::Alignment> escapeAt(const QString &text, qsizetype position)
{
    if (text.at(position) != u'\\' || (position > 0 && text.at(position - 1) == u'\\')
        || position + 1 == text.size())
        return {};
    switch (text.at(position + 1).unicode()) {
    case u'l':
        return TextBlockLine::Left;
    case u'r':
        return TextBlockLine::Right;
    case u'n':
        return TextBlockLine::Centre;
    default:
        return {};
    }
}

} // namespace

Device::Color *GraphStyle::paint(const QString &spec, const QString &style, double angle,
                                 const QRectF *bounds) const
{
    if (spec.isEmpty())
        return nullptr;
    const QStringList names = spec.split(u';');
    if (names.size() == 1 || !bounds || !(bounds->width() >= smallestGradient)
        || !(bounds->height() >= smallestGradient))
        return device->color(names.constFirst());

    QList<double> offsets;
    offsets.reserve(names.size());
    for (qsizetype i = 0; i < names.size(); ++i)
        offsets.append(double(i) / double(names.size() - 1));

    const double width = bounds->width();
    const double height = bounds->height();
    const QPointF centre = bounds->center();
    if (!style.contains("radial"_L1)) {
        const QPointF start = pointOnEllipse(centre, width * 0.5, height * 0.5, angle + 180.0);
        const QPointF stop = pointOnEllipse(centre, width * 0.5, height * 0.5, angle);
        return device->linearGradient(start, stop, names, offsets);
    }
    const double diagonal = std::sqrt(width * width + height * height);
    const double distance = diagonal * 0.5 * focusDistance;
    const QPointF focus = angle == 0.0 ? centre : pointOnEllipse(centre, distance, distance, angle);
    return device->radialGradient(focus, 1.0, centre, diagonal * 0.5, names, offsets);
}

// Style and angle are looked up for a gradient only: most fills are none.
template <typename Object>
Device::Color *GraphStyle::fill(const QString &spec, const Object *object,
                                const QRectF *bounds) const
{
    return spec.contains(u';') ? paint(spec, Rows::style.text(graph, object),
                                       Rows::gradientAngle.of(graph, object), bounds)
                               : paint(spec, {}, 0.0, bounds);
}

Device::Color *GraphStyle::clusterFill(const DotSubgraph *subgraph, const QRectF *bounds) const
{
    return fill(Rows::fillColor.of(graph, subgraph), subgraph, bounds);
}

Device::Color *GraphStyle::edgeFill(const DotEdge *edge, const QRectF *bounds) const
{
    return fill(Rows::color.of(graph, edge), edge, bounds);
}

Device::Color *GraphStyle::nodeFill(const DotNode *node, const QRectF *bounds) const
{
    return fill(Rows::fillColor.of(graph, node), node, bounds);
}

Device::Font *GraphStyle::fontFor(const QString &family, double size) const
{
    if (!lastFont.font || lastFont.family != family || lastFont.size != size) {
        const bool isGiven = size != 0.0 && !family.isEmpty();
        lastFont = {family, size, isGiven ? device->font(family, size, -1) : device->defaultFont()};
    }
    return lastFont.font;
}

template <typename Object>
Device::Font *GraphStyle::font(const Object *object) const
{
    return fontFor(Rows::fontName.of(graph, object), Rows::fontSize.of(graph, object));
}

Device::Font *GraphStyle::clusterFont(const DotSubgraph *subgraph) const
{
    return font(subgraph);
}

Device::Font *GraphStyle::edgeFont(const DotEdge *edge) const
{
    return font(edge);
}

Device::Font *GraphStyle::nodeFont(const DotNode *node) const
{
    return font(node);
}

Device::Pen *GraphStyle::penFor(const QString &color, const QString &style, int width) const
{
    if (!lastPen.pen || lastPen.color != color || lastPen.style != style
        || lastPen.width != width) {
        const int penStyle = style.contains("dashed"_L1) ? Device::Pen::Dashed
            : style.contains("dotted"_L1)                ? Device::Pen::Dotted
                                                         : Device::Pen::Solid;
        Device::Color *penColor = device->color(color);
        lastPen = {color, style, width,
                   device->pen(penColor, penStyle, std::max(width, defaultPenWidth))};
    }
    return lastPen.pen;
}

Device::Pen *GraphStyle::clusterPen(const DotSubgraph *subgraph) const
{
    return penFor(Rows::color.of(graph, subgraph), Rows::style.text(graph, subgraph),
                  Rows::penWidth.of(graph, subgraph));
}

Device::Pen *GraphStyle::edgePen(const DotEdge *edge, bool plain) const
{
    return penFor(Rows::color.of(graph, edge), plain ? QString() : Rows::style.text(graph, edge),
                  Rows::penWidth.of(graph, edge));
}

Device::Pen *GraphStyle::nodePen(const DotNode *node) const
{
    return penFor(Rows::color.of(graph, node), Rows::style.text(graph, node),
                  Rows::penWidth.of(graph, node));
}

template <typename Object>
TextBlock GraphStyle::labelOf(const Object *object) const
{
    const QString label = Rows::label.of(graph, object);
    if (label.isEmpty())
        return {};
    return textBlock(label, font(object), Rows::fontColor.of(graph, object));
}

TextBlock GraphStyle::clusterLabel(const DotSubgraph *subgraph) const
{
    return labelOf(subgraph);
}

TextBlock GraphStyle::edgeLabel(const DotEdge *edge) const
{
    return labelOf(edge);
}

TextBlock GraphStyle::nodeLabel(const DotNode *node) const
{
    return labelOf(node);
}

TextBlock GraphStyle::textBlock(const QString &string, Device::Font *font,
                                const QString &color) const
{
    QString text = string;
    if (text.contains(u'\n'))
        text.replace(u'\n', "\\n"_L1);
    Device::Color *textColor = device->color(color);

    TextBlock block;
    qint64 height = 0;
    const auto append = [&](const QString &line, TextBlockLine::Alignment alignment) {
        Device::Text *lineText = device->text(line, font, textColor);
        const QSize size = TextImage::textSize(lineText, false);
        block.lines.append({lineText, alignment, size.width(), size.height()});
        block.width = std::max(block.width, size.width());
        height += size.height();
    };
    qsizetype start = 0;
    for (qsizetype i = text.indexOf(u'\\'); i >= 0; i = text.indexOf(u'\\', i)) {
        const auto alignment = escapeAt(text, i);
        if (!alignment) {
            ++i;
            continue;
        }
        append(text.sliced(start, i - start), *alignment);
        i += 2;
        start = i;
    }
    if (start < text.size())
        append(text.sliced(start), TextBlockLine::Centre);
    if (block.lines.size() > 1)
        height += qint64(TextImage::fontLeading(font)) * (block.lines.size() - 1);
    block.height = saturated(height);
    return block;
}

} // namespace ORR::Graph
