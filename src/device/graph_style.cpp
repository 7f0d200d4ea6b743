#include "device/graph_style.h"

#include "device/ellipse.h"
#include "device/text_image.h"
#include "graph/numbers.h"

#include <algorithm>
#include <cmath>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

const QString colorName = u"color"_s;
const QString fillColorName = u"fillcolor"_s;
const QString fontColorName = u"fontcolor"_s;
const QString fontFamilyName = u"fontname"_s;
const QString fontSizeName = u"fontsize"_s;
const QString gradientAngleName = u"gradientAngle"_s;
const QString labelName = u"label"_s;
const QString penWidthName = u"penwidth"_s;
const QString styleName = u"style"_s;

// Below this width or height an area is too small to show a gradient.
constexpr double smallestGradient = 2.0;

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

Device::Color *GraphStyle::paint(const QString &spec, const QString &style, const QString &angle,
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

    const double degrees = angle.toDouble();
    const double width = bounds->width();
    const double height = bounds->height();
    const QPointF centre = bounds->center();
    if (!style.contains("radial"_L1)) {
        const QPointF start = pointOnEllipse(centre, width * 0.5, height * 0.5, degrees + 180.0);
        const QPointF stop = pointOnEllipse(centre, width * 0.5, height * 0.5, degrees);
        return device->linearGradient(start, stop, names, offsets);
    }
    const double diagonal = std::sqrt(width * width + height * height);
    const double distance = diagonal * 0.5 * focusDistance;
    const QPointF focus =
        degrees == 0.0 ? centre : pointOnEllipse(centre, distance, distance, degrees);
    return device->radialGradient(focus, 1.0, centre, diagonal * 0.5, names, offsets);
}

Device::Color *GraphStyle::clusterFill(const DotSubgraph *subgraph, const QRectF *bounds) const
{
    const QString spec = clusterAttribute(subgraph, fillColorName);
    return spec.contains(u';') ? paint(spec, clusterAttribute(subgraph, styleName),
                                       clusterAttribute(subgraph, gradientAngleName), bounds)
                               : paint(spec, {}, {}, bounds);
}

Device::Color *GraphStyle::edgeFill(const DotEdge *edge, const QRectF *bounds) const
{
    const QString spec = edgeAttribute(edge, colorName);
    return spec.contains(u';') ? paint(spec, edgeAttribute(edge, styleName),
                                       edgeAttribute(edge, gradientAngleName), bounds)
                               : paint(spec, {}, {}, bounds);
}

Device::Color *GraphStyle::nodeFill(const DotNode *node, const QRectF *bounds) const
{
    const QString spec = nodeAttribute(node, fillColorName);
    return spec.contains(u';') ? paint(spec, nodeAttribute(node, styleName),
                                       nodeAttribute(node, gradientAngleName), bounds)
                               : paint(spec, {}, {}, bounds);
}

Device::Font *GraphStyle::fontFor(const QString &family, const QString &size) const
{
    const double points = size.toDouble();
    if (points != 0.0 && !family.isEmpty())
        return device->font(family, points, -1);
    return device->defaultFont();
}

Device::Font *GraphStyle::clusterFont(const DotSubgraph *subgraph) const
{
    return fontFor(clusterAttribute(subgraph, fontFamilyName),
                   clusterAttribute(subgraph, fontSizeName));
}

Device::Font *GraphStyle::edgeFont(const DotEdge *edge) const
{
    return fontFor(edgeAttribute(edge, fontFamilyName), edgeAttribute(edge, fontSizeName));
}

Device::Font *GraphStyle::nodeFont(const DotNode *node) const
{
    return fontFor(nodeAttribute(node, fontFamilyName), nodeAttribute(node, fontSizeName));
}

Device::Pen *GraphStyle::penFor(const QString &color, const QString &style,
                                const QString &width) const
{
    const int penStyle = style.contains("dashed"_L1) ? Device::Pen::Dashed
        : style.contains("dotted"_L1)                ? Device::Pen::Dotted
                                                     : Device::Pen::Solid;
    return device->pen(device->color(color), penStyle, std::max(width.toInt(), 1));
}

Device::Pen *GraphStyle::clusterPen(const DotSubgraph *subgraph) const
{
    return penFor(clusterAttribute(subgraph, colorName), clusterAttribute(subgraph, styleName),
                  clusterAttribute(subgraph, penWidthName));
}

Device::Pen *GraphStyle::edgePen(const DotEdge *edge, bool plain) const
{
    return penFor(edgeAttribute(edge, colorName),
                  plain ? QString() : edgeAttribute(edge, styleName),
                  edgeAttribute(edge, penWidthName));
}

Device::Pen *GraphStyle::nodePen(const DotNode *node) const
{
    return penFor(nodeAttribute(node, colorName), nodeAttribute(node, styleName),
                  nodeAttribute(node, penWidthName));
}

TextBlock GraphStyle::clusterLabel(const DotSubgraph *subgraph) const
{
    const QString label = clusterAttribute(subgraph, labelName);
    if (label.isEmpty())
        return {};
    return textBlock(label, clusterFont(subgraph), clusterAttribute(subgraph, fontColorName));
}

TextBlock GraphStyle::edgeLabel(const DotEdge *edge) const
{
    const QString label = edgeAttribute(edge, labelName);
    if (label.isEmpty())
        return {};
    return textBlock(label, edgeFont(edge), edgeAttribute(edge, fontColorName));
}

TextBlock GraphStyle::nodeLabel(const DotNode *node) const
{
    const QString label = nodeAttribute(node, labelName);
    if (label.isEmpty())
        return {};
    return textBlock(label, nodeFont(node), nodeAttribute(node, fontColorName));
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

QString GraphStyle::clusterAttribute(const DotSubgraph *subgraph, const QString &name) const
{
    return graph->graphAttribute(subgraph, name);
}

QString GraphStyle::edgeAttribute(const DotEdge *edge, const QString &name) const
{
    return graph->edgeAttribute(edge, name);
}

QString GraphStyle::nodeAttribute(const DotNode *node, const QString &name) const
{
    return graph->nodeAttribute(node, name);
}

} // namespace ORR::Graph
