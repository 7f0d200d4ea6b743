#pragma once

#include "layout/charts/enclosing_circle.h"

#include <algorithm>
#include <limits>

namespace ORR::Graph::Layout {

// A box around circles, at first around none of them. What is not a number leaves it as it is.
struct Box
{
    double left = std::numeric_limits<double>::infinity();
    double top = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double bottom = -std::numeric_limits<double>::infinity();

    void unite(const Box &box)
    {
        left = std::min(left, box.left);
        top = std::min(top, box.top);
        right = std::max(right, box.right);
        bottom = std::max(bottom, box.bottom);
    }
    // Whether they have more than an edge in common.
    bool meets(const Box &box) const
    {
        return left < box.right && box.left < right && top < box.bottom && box.top < bottom;
    }
};

// Reaches `reach` from the centre of the circle.
inline Box boxAround(const Circle &circle, double reach)
{
    return {circle.x - reach, circle.y - reach, circle.x + reach, circle.y + reach};
}

} // namespace ORR::Graph::Layout
