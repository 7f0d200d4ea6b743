#pragma once

#include "graph/decimal.h"

#include <QPoint>
#include <QtGlobal>

#include <limits>

// The conversions from the numbers of a layout to the integers of a drawing. They are the only
// ones: an unguarded cast of a double that no int can hold is undefined. Those to and from texts
// are in decimal.h.
namespace ORR::Graph {

// The unit of every drawing is a point; inches stand only in attributes and in some formats.
inline constexpr int pointsPerInch = 72;

inline constexpr double infinity = std::numeric_limits<double>::infinity();

// `value` without its fraction, toward zero. What no int can hold becomes the nearest int, and what
// is not a number becomes 0.
constexpr int truncated(double value)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    if (value != value)
        return 0;
    if (value <= lowest)
        return lowest;
    if (value >= highest)
        return highest;
    return static_cast<int>(value);
}

// `value` plus a half, truncated: how every layout coordinate becomes a pixel. Negative halves thus
// go up and not away from zero; that is meant.
constexpr int rounded(double value)
{
    return truncated(value + 0.5);
}

// The int nearest to `value`. Integer layouts that may meet huge numbers compute in 64 bits and
// come back through this, so that a sum saturates instead of overflowing.
constexpr int saturated(qint64 value)
{
    constexpr qint64 lowest = std::numeric_limits<int>::min();
    constexpr qint64 highest = std::numeric_limits<int>::max();
    return static_cast<int>(value < lowest ? lowest : value > highest ? highest : value);
}

// The point nearest to (x, y) that ints can hold.
constexpr QPoint saturatedPoint(qint64 x, qint64 y)
{
    return {saturated(x), saturated(y)};
}

// The attribute text of such a coordinate.
inline QString coordinateText(qint64 value)
{
    return QString::number(saturated(value));
}

} // namespace ORR::Graph
