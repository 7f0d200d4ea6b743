#pragma once

#include "graph/numbers.h"

#include <QPoint>

namespace ORR::Graph::Layout {

// The two corners of an arrow head behind its tip.
struct ArrowHead
{
    QPoint lower;
    QPoint upper;
};

// A head that lies level, whatever way its line comes.
constexpr ArrowHead arrowHead(QPoint tip, bool rightward)
{
    constexpr int length = 6;
    constexpr int halfWidth = 3;
    const qint64 back = qint64(tip.x()) + (rightward ? -length : length);
    const qint64 y = tip.y();
    return {saturatedPoint(back, y + halfWidth), saturatedPoint(back, y - halfWidth)};
}

} // namespace ORR::Graph::Layout
