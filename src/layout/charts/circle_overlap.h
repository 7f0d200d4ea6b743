#pragma once

#include "layout/charts/enclosing_circle.h"

#include <QList>

namespace ORR::Graph::Layout {

// Whether any two of the circles overlap by more than `part`, 0 to 1, of the smaller one's radius;
// a circle within another one overlaps it by all that is between their outlines on the far side. A
// circle that is not made of finite numbers, or whose radius is not above 0, overlaps nothing.
//
// The circles are put into a tree of boxes, halved at the median of x and of y in turn, and each
// one is then looked up in it, the largest first. Those that were looked up without a result
// overlap nothing, so that only few of them lie about any smaller one, whatever their sizes: the
// time is that of sorting, near n log n, and not that of all pairs, also for radii of many powers
// of ten and for circles that all lie in one place.
bool overlap(const QList<Circle> &circles, double part);

} // namespace ORR::Graph::Layout
