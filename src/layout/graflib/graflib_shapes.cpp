#include "layout/graflib/graflib_shapes.h"

#include "graph/numbers.h"

#include <algorithm>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;

namespace {

constexpr double slant = 5.0; // of hexagons, if they are high enough, and of parallelograms
constexpr double largestCut = 8.0; // the corner that an octagon loses
constexpr double diagonalStep = 0.4142; // tangent of 22.5 degrees, as the cut of an inner octagon

const struct
{
    QString name;
    NodeShape shape;
} shapeNames[] = {
    {u"hexagon"_s, NodeShape::Hexagon},     {u"octagon"_s, NodeShape::Octagon},
    {u"oval"_s, NodeShape::Oval},           {u"parallelogram"_s, NodeShape::Parallelogram},
    {u"rectangle"_s, NodeShape::Rectangle}, {u"none"_s, NodeShape::None},
};

// Widths and radii that go with the text are a font size times 3, halved or quartered.
qint64 roundness(int fontSize)
{
    return qint64(fontSize) * 3;
}

QPoint pixel(double x, double y)
{
    return {rounded(x), rounded(y)};
}

// The inner figures have formulas of their own: those of the outer ones with a smaller box would
// not keep the slopes parallel.

QList<QPoint> hexagon(const NodeBox &b)
{
    const double d = (b.y1 - b.y0) * 0.5;
    const double e = std::min(d, slant);
    return {pixel(b.x0, b.y0 + d), pixel(b.x0 + e, b.y0), pixel(b.x1 - e, b.y0),
            pixel(b.x1, b.y0 + d), pixel(b.x1 - e, b.y1), pixel(b.x0 + e, b.y1),
            pixel(b.x0, b.y0 + d)};
}

QList<QPoint> innerHexagon(const NodeBox &b, double gap)
{
    const double d = (b.y1 - b.y0) * 0.5;
    const double e = std::min(d, slant);
    const double k = ((d - gap) * e) / d - e + gap;
    return {pixel(b.x0 + gap, b.y0 + d),     pixel(b.x0 + e + k, b.y0 + gap),
            pixel(b.x1 - e - k, b.y0 + gap), pixel(b.x1 - gap, b.y0 + d),
            pixel(b.x1 - e - k, b.y1 - gap), pixel(b.x0 + e + k, b.y1 - gap),
            pixel(b.x0 + gap, b.y0 + d)};
}

QList<QPoint> octagon(const NodeBox &b)
{
    const double t = std::min((b.y1 - b.y0) / 3, largestCut);
    return {pixel(b.x0 + t, b.y0), pixel(b.x1 - t, b.y0), pixel(b.x1, b.y0 + t),
            pixel(b.x1, b.y1 - t), pixel(b.x1 - t, b.y1), pixel(b.x0 + t, b.y1),
            pixel(b.x0, b.y1 - t), pixel(b.x0, b.y0 + t), pixel(b.x0 + t, b.y0)};
}

QList<QPoint> innerOctagon(const NodeBox &b, double gap)
{
    const double t = std::min((b.y1 - b.y0) / 3, largestCut);
    const double k = gap - gap * diagonalStep;
    return {pixel(b.x0 + t + k, b.y0 + gap), pixel(b.x1 - t - k, b.y0 + gap),
            pixel(b.x1 - gap, b.y0 + t + k), pixel(b.x1 - gap, b.y1 - t - k),
            pixel(b.x1 - t - k, b.y1 - gap), pixel(b.x0 + t + k, b.y1 - gap),
            pixel(b.x0 + gap, b.y1 - t - k), pixel(b.x0 + gap, b.y0 + t + k),
            pixel(b.x0 + t + k, b.y0 + gap)};
}

QList<QPoint> parallelogram(const NodeBox &b)
{
    return {pixel(b.x0 + slant, b.y0), pixel(b.x1, b.y0), pixel(b.x1 - slant, b.y1),
            pixel(b.x0, b.y1), pixel(b.x0 + slant, b.y0)};
}

QList<QPoint> innerParallelogram(const NodeBox &b, double gap)
{
    const double s = (((b.y1 - b.y0) - gap) * slant) / (b.y1 - b.y0) - slant;
    return {pixel(b.x0 + slant + gap + s, b.y0 + gap), pixel(b.x1 - gap + s, b.y0 + gap),
            pixel(b.x1 - slant - gap - s, b.y1 - gap), pixel(b.x0 + gap - s, b.y1 - gap),
            pixel(b.x0 + slant + gap + s, b.y0 + gap)};
}

void drawOval(const NodeBox &b, const OutlineStyle &style, Device *device)
{
    const double rx = (b.x1 - b.x0) * 0.5;
    const double ry = (b.y1 - b.y0) * 0.5;
    const QPoint centre = pixel(b.x0 + rx, b.y0 + ry);
    device->drawEllipse(centre, rounded(rx), rounded(ry), style.pen, style.fill);
    if (style.gap > 0)
        device->drawEllipse(centre, rounded(rx - style.gap), rounded(ry - style.gap), style.pen,
                            nullptr);
}

void drawRectangle(const NodeBox &b, const OutlineStyle &style, Device *device)
{
    double radius = 0.0;
    if (style.rounded) {
        // The larger half and not the smaller one: a flat node may get a radius above half its
        // height. That is meant.
        const qint64 quarter = roundness(style.fontSize) / 4;
        const double half = std::max((b.y1 - b.y0) / 2, (b.x1 - b.x0) / 2);
        radius = std::max(std::min(half, double(quarter)), 0.0);
    }
    device->drawRect(pixel(b.x0, b.y0), pixel(b.x1, b.y1), truncated(radius), style.pen,
                     style.fill);
    if (style.gap <= 0)
        return;
    const QPoint from = pixel(b.x0 + style.gap, b.y0 + style.gap);
    const QPoint to = pixel(b.x1 - style.gap, b.y1 - style.gap);
    double innerRadius = 0.0;
    if (radius != 0.0) {
        const qint64 half =
            std::max((qint64(to.y()) - from.y()) / 2, (qint64(to.x()) - from.x()) / 2);
        innerRadius = std::max(std::min(radius - style.gap, double(half)), 0.0);
    }
    device->drawRect(from, to, truncated(innerRadius), style.pen, nullptr);
}

} // namespace

std::optional<NodeShape> nodeShapeNamed(const QString &name)
{
    for (const auto &known : shapeNames) {
        if (name == known.name)
            return known.shape;
    }
    return {};
}

double shapeAllowance(NodeShape shape, bool roundedStyle, int fontSize)
{
    switch (shape) {
    case NodeShape::Hexagon:
    case NodeShape::Parallelogram:
        return 2 * slant;
    case NodeShape::Octagon:
        return 2 * largestCut;
    case NodeShape::Oval:
        return roundness(fontSize) * 0.5;
    case NodeShape::Rectangle:
        return roundedStyle ? roundness(fontSize) * 0.5 : 0.0;
    case NodeShape::None:
        break;
    }
    return 0.0;
}

void drawOutline(NodeShape shape, const NodeBox &box, const OutlineStyle &style, Device *device)
{
    const auto drawBoth = [&](QList<QPoint> (*outer)(const NodeBox &),
                              QList<QPoint> (*inner)(const NodeBox &, double)) {
        device->drawPolygon(outer(box), style.pen, style.fill);
        if (style.gap > 0)
            device->drawPolygon(inner(box, style.gap), style.pen, nullptr);
    };
    switch (shape) {
    case NodeShape::Hexagon:
        return drawBoth(hexagon, innerHexagon);
    case NodeShape::Octagon:
        return drawBoth(octagon, innerOctagon);
    case NodeShape::Oval:
        return drawOval(box, style, device);
    case NodeShape::Parallelogram:
        return drawBoth(parallelogram, innerParallelogram);
    case NodeShape::Rectangle:
        return drawRectangle(box, style, device);
    case NodeShape::None:
        break;
    }
}

} // namespace ORR::Graph::Layout
