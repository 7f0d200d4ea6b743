#include "layout/charts/bubble_places.h"

#include "graph/numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ORR::Graph::Layout {

namespace {

// Not a more precise pi: the sizes of all circles depend on it.
constexpr double areaDivisor = 3.14;
// What a label needs around it, both sides together.
constexpr double labelMargin = 4.0;
// The sum of any number of them is below what the packing takes.
constexpr double largestNode = 1e290;

// The scale at which the drawing is as large as an int can measure. Beyond it all circles would
// come to lie in the same place, and a device would paint the page once for each of them.
double largestScale(double radius)
{
    constexpr double largestSide = std::numeric_limits<int>::max();
    return radius > 0.0 && std::isfinite(radius) ? largestSide * 0.5 / radius : infinity;
}

} // namespace

double bubbleRadius(double radius, double area)
{
    if (!(radius > 0.0))
        radius = std::sqrt(area / areaDivisor);
    return std::min(radius, largestNode); // not a number stays that
}

PackCircle paddedCircle(double radius)
{
    PackCircle circle;
    circle.r = radius + bubblePadding;
    return circle;
}

double fittingScale(double r, QSize label)
{
    return r > 0.0 ? (std::max(label.width(), label.height()) + labelMargin) / (r + r) : 0.0;
}

double bubbleScale(double radius, double labelScale, double wantedDiameter)
{
    double scale = std::max(1.0, labelScale);
    if (radius > 0.0)
        scale = std::max(scale, wantedDiameter * 0.5 / radius);
    return std::min(scale, largestScale(radius));
}

} // namespace ORR::Graph::Layout
