#include "layout/charts/sunburst_slices.h"

namespace ORR::Graph::Layout {

qsizetype narrowSlices(const QList<double> &areas, double sweep, double &total)
{
    qsizetype narrow = 0;
    // What is not a number, as behind a total of 0, is narrow.
    while (narrow < areas.size() && !((areas.at(narrow) / total) * sweep >= smallestSweep))
        total -= areas.at(narrow++);
    return narrow;
}

QList<SunburstSlice> slicesOf(const QList<double> &areas, double total, const SunburstSlice &ring)
{
    QList<SunburstSlice> slices;
    slices.reserve(areas.size());
    double a0 = ring.a0;
    for (const double area : areas) {
        const double share = (area / total) * ring.sweep;
        slices.append({a0, share, ring.r0, ring.r1});
        a0 += share;
    }
    return slices;
}

} // namespace ORR::Graph::Layout
