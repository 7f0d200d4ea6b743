#include "layout/charts/chart_rect.h"

#include "graph/numbers.h"

#include <algorithm>
#include <limits>

namespace ORR::Graph::Layout {

namespace {

int farCorner(int start, qint64 length)
{
    const qint64 lowest = qint64(std::numeric_limits<int>::min()) + std::max(start, 0);
    return saturated(std::max(start + length - 1, lowest));
}

} // namespace

QRect chartRect(int left, int top, qint64 width, qint64 height)
{
    return {QPoint(left, top), QPoint(farCorner(left, width), farCorner(top, height))};
}

} // namespace ORR::Graph::Layout
