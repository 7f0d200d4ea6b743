#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

namespace ORR::Graph::Layout {

// The side of the chart that a legend lies on.
enum class LegendSide { Top, Bottom, Left, Right };

// The sizes of what a legend shows, in points.
struct LegendParts
{
    LegendSide side = LegendSide::Right;
    std::optional<QSize> title;
    QList<QSize> entries;
};

// Where it all goes.
struct LegendPlaces
{
    QPoint title; // top left corners; (0, 0) if there is no title
    QList<QPoint> entries; // in the order of the parts
    QRect chart; // moved to make room
    QSize page;
};

// Lays a legend out along one side of a chart: in lines of as many entries as the chart has room
// for, the whole centred beside it, below the title or, at the left and the right, beside it. A
// coordinate that no int can hold becomes the nearest.
LegendPlaces legendPlaces(const LegendParts &parts, const QRect &chart);

// The page of a chart without a legend: its margin is doubled on the far side.
QSize pageWithoutLegend(const QRect &chart);

} // namespace ORR::Graph::Layout
