#pragma once

#include "layout/charts/front_chain.h"

#include <QList>

namespace ORR::Graph::Layout {

// Packs the circles tightly around (0, 0), in the order of the list, and returns the radius of the
// smallest circle around them all, whose centre is then (0, 0). 0 for an empty list.
//
// This is the front-chain packing of W. Wang, H. Wang, G. Dai and H. Wang, "Visualization of large
// hierarchical data by circle packing" (CHI 2006): the chain is the outline of what is placed, each
// circle goes against that neighbouring pair of it which is nearest to (0, 0), and where it would
// run into another circle of the chain, the chain is cut short up to there.
//
// Two circles intersect if the square of their distance falls below that of their radii's sum by
// more than 1e-6. With radii of some ten thousands and more rounding is larger than that, and a new
// circle may seem to intersect the very pair that it is put against. As long as the chain has three
// circles, that pair is not looked at, and every intersection cuts the chain shorter. But a chain
// of two may be cut down to one by such an error, and where an intersection is then found that cuts
// nothing any more, the circle comes to the same place for ever. This is the only way in which the
// packing of a list does not end, and it is seen at once. The other is the search for the enclosing
// circle, which sees it for itself; positions that are not numbers come out there.
//
// Rounding has a second effect long before that: circles overlap. And with radii of any size there
// are lists, some in ten thousand, in which the chain is cut on the wrong side.
//
// A list whose packing does not end, or whose circles then overlap by more than 1e-4 of the smaller
// one's radius (`overlap`, which takes less time than the packing), is packed anew the sturdy way:
// - on a copy of the circles scaled to the size of 1,
// - with a tolerance in proportion to the circles, 1e-6 of the smaller one's radius,
// - each circle placed as seen from the smaller of the two that it goes against,
// - with the chain cut on the side of the pocket that the new circle closes, and never one of two.
// The sturdy way leaves no such overlap as long as the largest radius is at most some 1e8 times the
// smallest; beyond some 1e10 times, no double holds the places of the smallest circles. A radius
// that is negative or no number counts as 1, and one beyond 1e300 as that; the list then holds
// these radii. Every other list comes out of the plain packing, to the last bit.
double packSiblings(QList<PackCircle> &circles);

} // namespace ORR::Graph::Layout
