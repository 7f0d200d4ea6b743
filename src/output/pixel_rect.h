#pragma once

#include <QPoint>
#include <QRectF>

namespace ORR::Graph {

// The rectangle of all pixels from one corner to the other, both included, as QRect has it between
// two points. In doubles, because no int may hold the width.
inline QRectF pixelRect(QPoint topLeft, QPoint bottomRight)
{
    return {qreal(topLeft.x()), qreal(topLeft.y()), qreal(bottomRight.x()) - topLeft.x() + 1,
            qreal(bottomRight.y()) - topLeft.y() + 1};
}

} // namespace ORR::Graph
