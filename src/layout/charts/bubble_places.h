#pragma once

#include "layout/charts/circle_packing.h"

#include <QSize>

namespace ORR::Graph::Layout {

// What a bubble's radius is packed with; it is taken off again after the scaling, so that the gap
// between two circles is 2 points at any scale.
constexpr double bubblePadding = 1.0;

// The radius of a node, before scaling: `radius`, or where that is not above 0 that of a circle of
// the area. Radii beyond 1e290 count as that. An area below 0 has no root, which is no number.
double bubbleRadius(double radius, double area);

// A circle to be packed.
PackCircle paddedCircle(double radius);

// The scale at which a label fits into a circle that was packed with the radius r; 0 where r is not
// above 0, as of what was not packed.
double fittingScale(double r, QSize label);

// The one scale of a drawing whose circles have the radius together: at least 1, all that labels
// ask for and the wanted diameter. A drawing that would be larger than an int can measure is scaled
// down until it is not.
double bubbleScale(double radius, double labelScale, double wantedDiameter);

} // namespace ORR::Graph::Layout
