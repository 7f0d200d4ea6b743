#include "invariants/figures.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double onePoint = 1.0; // what the rounding of two coordinates may make
constexpr double circleRounding = 2.0; // of two centres and two radii
// Angles come as texts of six digits and are added up around a ring.
constexpr double angleRounding = 0.05;
constexpr double wholeTurn = 360.0;

bool isSlice(const DrawnShape &shape)
{
    return !shape.arcs.isEmpty() && shape.arcs.size() <= 2;
}

// The outer arc runs counter-clockwise, and the inner one back; a slice to the centre has none.
RingSlice sliceOf(const DrawnShape &shape)
{
    RingSlice slice;
    for (const DrawnArc &arc : shape.arcs) {
        const double radius = arc.ellipse.width() / 2;
        if (radius > slice.outer) {
            slice.inner = slice.outer;
            slice.outer = radius;
        } else {
            slice.inner = radius;
        }
        if (arc.sweep > 0) {
            slice.start = arc.start;
            slice.sweep = arc.sweep;
        }
    }
    return slice;
}

double radiusOf(const Figure &circle)
{
    return circle.box.width() / 2;
}

double distance(const Figure &a, const Figure &b)
{
    const QPointF way = a.box.center() - b.box.center();
    return std::hypot(way.x(), way.y());
}

// How far the second angle lies behind the first, from just below 0 to nearly a turn.
double turnTo(double from, double to)
{
    const double turn = std::fmod(std::fmod(to - from, wholeTurn) + wholeTurn, wholeTurn);
    return turn > wholeTurn - angleRounding ? turn - wholeTurn : turn;
}

bool isInside(const RingSlice &child, const RingSlice &parent)
{
    if (child.inner < parent.outer - onePoint)
        return false;
    return parent.sweep > wholeTurn - angleRounding
        || turnTo(parent.start, child.start) + child.sweep <= parent.sweep + angleRounding;
}

bool areApart(const RingSlice &a, const RingSlice &b)
{
    const bool sameRing = std::min(a.outer, b.outer) > std::max(a.inner, b.inner) + onePoint;
    return !sameRing
        || (turnTo(a.start, b.start) >= a.sweep - angleRounding
            && turnTo(b.start, a.start) >= b.sweep - angleRounding);
}

} // namespace

std::optional<Figure> figureOf(const DrawnObject &object)
{
    static const QStringList areas{u"rect"_s, u"ellipse"_s, u"polygon"_s, u"path"_s};
    const bool isNode = object.kind == "Node"_L1;
    const auto shape = std::ranges::find_if(object.shapes, [&](const DrawnShape &s) {
        // A group's polygon is a tab in its corner, and an edge's is the head of its arrow.
        return areas.contains(s.word) && (isNode || s.word != "polygon"_L1);
    });
    if (shape == object.shapes.end())
        return std::nullopt;
    if (isSlice(*shape))
        return Figure{Figure::Slice, shape->box, sliceOf(*shape)};
    const bool isCircle = shape->word == "ellipse"_L1 && shape->box.width() == shape->box.height();
    return Figure{isCircle ? Figure::Circle : Figure::Box, shape->box, {}};
}

bool isInside(const Figure &child, const Figure &parent, double leeway)
{
    if (child.kind == Figure::Slice && parent.kind == Figure::Slice)
        return isInside(child.slice, parent.slice);
    if (child.kind == Figure::Circle && parent.kind == Figure::Circle)
        return distance(child, parent) + radiusOf(child) <= radiusOf(parent) + circleRounding;
    // A box without width or height lies somewhere all the same.
    return child.box.left() >= parent.box.left() - onePoint
        && child.box.top() >= parent.box.top() - onePoint
        && child.box.right() <= parent.box.right() + onePoint + leeway
        && child.box.bottom() <= parent.box.bottom() + onePoint;
}

bool areApart(const Figure &a, const Figure &b)
{
    if (a.kind == Figure::Slice && b.kind == Figure::Slice)
        return areApart(a.slice, b.slice);
    if (a.kind == Figure::Circle && b.kind == Figure::Circle)
        return distance(a, b) >= radiusOf(a) + radiusOf(b) - circleRounding;
    const QRectF common = a.box.intersected(b.box);
    return common.width() <= onePoint || common.height() <= onePoint;
}
