#pragma once

#include <QPoint>
#include <QString>
#include <QtGlobal>

#include <limits>

// The conversions between the numbers of a layout and the integers and texts of a drawing. They are
// the only ones: an unguarded cast of a double that no int can hold is undefined.
namespace ORR::Graph {

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

// The text of a number that is stored in an attribute or printed into a drawing: at most six
// significant digits. Layouts read positions back through this text, so the rounding is part of
// every result.
inline QString numberText(double value)
{
    return QString::number(value, 'g', 6);
}

} // namespace ORR::Graph
