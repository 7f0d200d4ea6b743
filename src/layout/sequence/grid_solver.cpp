#include "layout/sequence/grid_solver.h"

#include "graph/numbers.h"

#include <algorithm>

namespace ORR::Graph::Layout {

namespace {

constexpr int bandGap = 5;

// How far the objects of one index reach from its anchor: those that widen the band, and those that
// span.
struct Band
{
    int before = 0;
    int after = 0;
    int spanBefore = 0;
    int spanAfter = 0;
};

void reach(int &before, int &after, int offset, int size)
{
    before = std::max(before, saturated(-qint64(offset)));
    after = std::max(after, saturated(qint64(size) + offset));
}

QList<Band> bandsOf(int count, const QList<GridClaim> &claims)
{
    QList<Band> bands(count);
    for (const GridClaim &claim : claims) {
        if (claim.index < 0 || claim.index >= count)
            continue;
        Band &band = bands[claim.index];
        if (claim.spans)
            reach(band.spanBefore, band.spanAfter, claim.offset, claim.size);
        else
            reach(band.before, band.after, claim.offset, claim.size);
    }
    return bands;
}

} // namespace

QList<int> solveGrid(int count, const QList<GridClaim> &claims)
{
    QList<int> positions;
    positions.reserve(qsizetype(count) + 1);
    int last = 0;
    int after = 0;
    int carry = 0;
    const QList<Band> bands = bandsOf(count, claims);
    for (const Band &band : bands) {
        const qint64 claimed = std::max(qint64(band.spanBefore) - band.before, qint64(carry));
        last = saturated(qint64(last) + after + bandGap + band.before + claimed);
        positions.append(last);
        carry = saturated(std::max(qint64(0), qint64(band.spanAfter) - band.after));
        after = band.after;
    }
    positions.append(saturated(qint64(last) + bandGap + after + carry));
    return positions;
}

} // namespace ORR::Graph::Layout
