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

QList<Band> measuredBands(int count, const QList<const GridObject *> &objects, bool columns,
                          const GraphStyle &style)
{
    QList<Band> bands(count);
    for (const GridObject *object : objects) {
        const int index = columns ? object->col() : object->row();
        if (index < 0 || index >= count)
            continue;
        const int offset = columns ? object->xOffset(style) : object->yOffset(style);
        const int size = columns ? object->width(style) : object->height(style);
        Band &band = bands[index];
        if (object->spansAxis(columns))
            reach(band.spanBefore, band.spanAfter, offset, size);
        else
            reach(band.before, band.after, offset, size);
    }
    return bands;
}

} // namespace

QList<int> solveGrid(int count, const QList<const GridObject *> &objects, bool columns,
                     const GraphStyle &style)
{
    QList<int> positions;
    positions.reserve(qsizetype(count) + 1);
    int last = 0;
    int after = 0;
    int carry = 0;
    const QList<Band> bands = measuredBands(count, objects, columns, style);
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
