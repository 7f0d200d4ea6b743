#pragma once

#include "graph/numbers.h"

#include <QPoint>

#include <algorithm>
#include <limits>

namespace ORR::Graph {

// What primitives cover, in points from the top left of the page: their geometry, without the width
// of pens. At first nothing.
struct CoveredBox
{
    int left = std::numeric_limits<int>::max();
    int top = std::numeric_limits<int>::max();
    int right = std::numeric_limits<int>::min();
    int bottom = std::numeric_limits<int>::min();

    // Whether it covers nothing at all; a point is something.
    bool isNull() const { return right < left; }
    int width() const { return saturated(qint64(right) - left); }
    int height() const { return saturated(qint64(bottom) - top); }

    void include(QPoint point)
    {
        left = std::min(left, point.x());
        top = std::min(top, point.y());
        right = std::max(right, point.x());
        bottom = std::max(bottom, point.y());
    }
    void unite(const CoveredBox &box)
    {
        left = std::min(left, box.left);
        top = std::min(top, box.top);
        right = std::max(right, box.right);
        bottom = std::max(bottom, box.bottom);
    }
};

} // namespace ORR::Graph
