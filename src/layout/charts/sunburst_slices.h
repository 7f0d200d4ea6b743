#pragma once

#include <QList>

namespace ORR::Graph::Layout {

// A segment of a ring. Angles are in degrees, counter-clockwise from the right, radii in points.
struct SunburstSlice
{
    double a0 = 0.0;
    double sweep = 0.0;
    double r0 = 0.0;
    double r1 = 0.0;
};

// Below this a slice is left out, in degrees; the others of its subgraph share its room.
constexpr double smallestSweep = 0.29;

// How many of the areas, which rise, are too narrow to be seen when all share the angle in
// proportion. Each one gives its room to the others, and may save the next by that. `total` is the
// sum of them all; it becomes that of those that stay.
qsizetype narrowSlices(const QList<double> &areas, double sweep, double &total);

// The slices of the areas, one behind the other: `ring` is all that they share, its angle in
// proportion to `total`.
QList<SunburstSlice> slicesOf(const QList<double> &areas, double total, const SunburstSlice &ring);

} // namespace ORR::Graph::Layout
