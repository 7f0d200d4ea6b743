#include "layout/graflib/node_outline.h"

#include "graph/numbers.h"

#include <algorithm>

namespace ORR::Graph::Layout {

namespace {

constexpr double slant = 5.0; // of hexagons, if they are high enough, and of parallelograms
constexpr double largestCut = 8.0; // the corner that an octagon loses
constexpr double diagonalStep = 0.4142; // tangent of 22.5 degrees, as the cut of an inner octagon

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

Polygon hexagon(const NodeBox &b)
{
    const double d = (b.y1 - b.y0) * 0.5;
    const double e = std::min(d, slant);
    return {pixel(b.x0, b.y0 + d), pixel(b.x0 + e, b.y0), pixel(b.x1 - e, b.y0),
            pixel(b.x1, b.y0 + d), pixel(b.x1 - e, b.y1), pixel(b.x0 + e, b.y1),
            pixel(b.x0, b.y0 + d)};
}

Polygon innerHexagon(const NodeBox &b, double gap)
{
    const double d = (b.y1 - b.y0) * 0.5;
    const double e = std::min(d, slant);
    const double k = ((d - gap) * e) / d - e + gap;
    return {pixel(b.x0 + gap, b.y0 + d),     pixel(b.x0 + e + k, b.y0 + gap),
            pixel(b.x1 - e - k, b.y0 + gap), pixel(b.x1 - gap, b.y0 + d),
            pixel(b.x1 - e - k, b.y1 - gap), pixel(b.x0 + e + k, b.y1 - gap),
            pixel(b.x0 + gap, b.y0 + d)};
}

Polygon octagon(const NodeBox &b)
{
    const double t = std::min((b.y1 - b.y0) / 3, largestCut);
    return {pixel(b.x0 + t, b.y0), pixel(b.x1 - t, b.y0), pixel(b.x1, b.y0 + t),
            pixel(b.x1, b.y1 - t), pixel(b.x1 - t, b.y1), pixel(b.x0 + t, b.y1),
            pixel(b.x0, b.y1 - t), pixel(b.x0, b.y0 + t), pixel(b.x0 + t, b.y0)};
}

Polygon innerOctagon(const NodeBox &b, double gap)
{
    const double t = std::min((b.y1 - b.y0) / 3, largestCut);
    const double k = gap - gap * diagonalStep;
    return {pixel(b.x0 + t + k, b.y0 + gap), pixel(b.x1 - t - k, b.y0 + gap),
            pixel(b.x1 - gap, b.y0 + t + k), pixel(b.x1 - gap, b.y1 - t - k),
            pixel(b.x1 - t - k, b.y1 - gap), pixel(b.x0 + t + k, b.y1 - gap),
            pixel(b.x0 + gap, b.y1 - t - k), pixel(b.x0 + gap, b.y0 + t + k),
            pixel(b.x0 + t + k, b.y0 + gap)};
}

Polygon parallelogram(const NodeBox &b)
{
    return {pixel(b.x0 + slant, b.y0), pixel(b.x1, b.y0), pixel(b.x1 - slant, b.y1),
            pixel(b.x0, b.y1), pixel(b.x0 + slant, b.y0)};
}

Polygon innerParallelogram(const NodeBox &b, double gap)
{
    const double s = (((b.y1 - b.y0) - gap) * slant) / (b.y1 - b.y0) - slant;
    return {pixel(b.x0 + slant + gap + s, b.y0 + gap), pixel(b.x1 - gap + s, b.y0 + gap),
            pixel(b.x1 - slant - gap - s, b.y1 - gap), pixel(b.x0 + gap - s, b.y1 - gap),
            pixel(b.x0 + slant + gap + s, b.y0 + gap)};
}

Outline ovals(const NodeBox &b, double gap)
{
    const double rx = (b.x1 - b.x0) * 0.5;
    const double ry = (b.y1 - b.y0) * 0.5;
    const QPoint centre = pixel(b.x0 + rx, b.y0 + ry);
    return {Ellipse{centre, rounded(rx), rounded(ry)},
            Ellipse{centre, rounded(rx - gap), rounded(ry - gap)}};
}

Outline rectangles(const NodeBox &b, double gap, const OutlineStyle &style)
{
    double radius = 0.0;
    if (style.rounded) {
        // The larger half and not the smaller one: a flat node may get a radius above half its
        // height. That is meant.
        const qint64 quarter = roundness(style.fontSize) / 4;
        const double half = std::max((b.y1 - b.y0) / 2, (b.x1 - b.x0) / 2);
        radius = std::max(std::min(half, double(quarter)), 0.0);
    }
    const QPoint from = pixel(b.x0 + gap, b.y0 + gap);
    const QPoint to = pixel(b.x1 - gap, b.y1 - gap);
    double innerRadius = 0.0;
    if (radius != 0.0) {
        const qint64 half =
            std::max((qint64(to.y()) - from.y()) / 2, (qint64(to.x()) - from.x()) / 2);
        innerRadius = std::max(std::min(radius - gap, double(half)), 0.0);
    }
    return {RoundedRect{pixel(b.x0, b.y0), pixel(b.x1, b.y1), truncated(radius)},
            RoundedRect{from, to, truncated(innerRadius)}};
}

Outline doubleOutline(const OutlineStyle &style, const NodeBox &box)
{
    constexpr double gap = doubleGap;
    switch (style.shape) {
    case NodeShape::Hexagon:
        return {hexagon(box), innerHexagon(box, gap)};
    case NodeShape::Octagon:
        return {octagon(box), innerOctagon(box, gap)};
    case NodeShape::Oval:
        return ovals(box, gap);
    case NodeShape::Parallelogram:
        return {parallelogram(box), innerParallelogram(box, gap)};
    case NodeShape::Rectangle:
        return rectangles(box, gap, style);
    case NodeShape::None:
        break;
    }
    return {};
}

} // namespace

double outlineAllowance(const OutlineStyle &style)
{
    switch (style.shape) {
    case NodeShape::Hexagon:
    case NodeShape::Parallelogram:
        return 2 * slant;
    case NodeShape::Octagon:
        return 2 * largestCut;
    case NodeShape::Oval:
        return roundness(style.fontSize) * 0.5;
    case NodeShape::Rectangle:
        return style.rounded ? roundness(style.fontSize) * 0.5 : 0.0;
    case NodeShape::None:
        break;
    }
    return 0.0;
}

std::optional<Outline> outlineOf(const OutlineStyle &style, const NodeBox &box)
{
    if (style.shape == NodeShape::None)
        return {};
    Outline outline = doubleOutline(style, box);
    if (!style.isDouble)
        outline.inner.reset();
    return outline;
}

} // namespace ORR::Graph::Layout
