#include "layout/charts/bar_places.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace ORR::Graph::Layout;

namespace {

constexpr BarDirection rightward{true, false};
constexpr BarDirection leftward{true, true};
constexpr BarDirection upward{false, false};
constexpr BarDirection downward{false, true};

BarMetrics metricsOf(BarDirection direction, const QList<BarSegment> &bars, QSize wanted = {0, 0})
{
    BarMeasure measure(direction);
    for (const BarSegment &bar : bars)
        measure.addBar(bar);
    return measure.metrics(wanted);
}

// The first bar of two, each 10 thick, at a scale of 2 within (4, 4) and 50 along.
BarCursor cursorTo(BarDirection direction)
{
    const QSize size = direction.horizontal ? QSize(50, 24) : QSize(24, 50);
    return BarCursor({direction, 2.0, 10, 0, QRect(QPoint(4, 4), size)});
}

QRect corners(const BarCursor::Bar &bar)
{
    return {bar.topLeft, bar.bottomRight};
}

QRect corners(int left, int top, int right, int bottom)
{
    return {QPoint(left, top), QPoint(right, bottom)};
}

} // namespace

TEST(BarMeasure, of_nothing_is_an_empty_row)
{
    const BarMetrics metrics = metricsOf(rightward, {});
    EXPECT_EQ(metrics.scale, 0.0);
    EXPECT_EQ(metrics.thickness, 8);
    EXPECT_EQ(metrics.chart, QRect(4, 4, 4, -4));
}

TEST(BarMeasure, makes_the_longest_bar_as_long_as_wanted)
{
    EXPECT_EQ(metricsOf(rightward, {{50, {}}, {100, {}}}, {300, 0}).scale, 3.0);
    EXPECT_EQ(metricsOf(upward, {{50, {}}, {100, {}}}, {0, 300}).scale, 3.0);
    EXPECT_EQ(metricsOf(upward, {{4, {}}}).scale, 4.0); // 16 without a wish
}

TEST(BarMeasure, makes_room_for_labels_along_and_across_the_bars)
{
    const BarMetrics lying = metricsOf(rightward, {{2, {30, 14}}, {10, {}}}, {20, 0});
    EXPECT_EQ(lying.scale, 15.0);
    EXPECT_EQ(lying.thickness, 14);
    const BarMetrics standing = metricsOf(upward, {{2, {30, 14}}, {10, {}}}, {0, 20});
    EXPECT_EQ(standing.scale, 7.0);
    EXPECT_EQ(standing.thickness, 30);
}

TEST(BarMeasure, makes_no_bar_shorter_than_four_points)
{
    EXPECT_EQ(metricsOf(rightward, {{0.5, {}}, {1, {}}}, {1, 0}).scale, 8.0);
}

TEST(BarMeasure, counts_what_is_not_drawn)
{
    const BarMetrics metrics = metricsOf(rightward, {{0, {30, 20}}, {-5, {}}, {1, {}}});
    EXPECT_EQ(metrics.thickness, 20);
    EXPECT_EQ(metrics.chart.height(), 3 * 24 - 4);
}

TEST(BarMeasure, shares_the_wanted_size_across_among_the_bars)
{
    EXPECT_EQ(metricsOf(upward, {{1, {}}}, {100, 0}).thickness, 96);
    EXPECT_EQ(metricsOf(upward, {{1, {}}, {1, {}}, {1, {}}}, {100, 0}).thickness, 29);
    EXPECT_EQ(metricsOf(upward, {{1, {}}}, {-100, 0}).thickness, 8);
}

TEST(BarMeasure, adds_up_a_stack_without_fractions)
{
    BarMeasure measure(rightward);
    measure.addStack({}, {{10.9, {}}, {9.9, {}}, {std::nan(""), {}}});
    EXPECT_EQ(measure.metrics({190, 0}).scale, 10.0);
}

TEST(BarMeasure, keeps_a_band_for_captions)
{
    BarMeasure measure(rightward);
    measure.addStack({40, 14}, {{100, {}}});
    const BarMetrics metrics = measure.metrics({100, 0});
    EXPECT_EQ(metrics.band, 44);
    EXPECT_EQ(metrics.thickness, 14);
    EXPECT_EQ(metrics.chart, QRect(4, 4, 100 + 4 + 44, 14));
}

TEST(BarMeasure, takes_values_of_every_size)
{
    const BarMetrics metrics = metricsOf(rightward, {{1e-308, {}}, {1e308, {}}});
    EXPECT_EQ(metrics.scale, std::numeric_limits<double>::infinity());
    EXPECT_EQ(metrics.chart.right(), std::numeric_limits<int>::max());
}

TEST(BarCursor, puts_bars_where_they_grow_to)
{
    EXPECT_EQ(corners(cursorTo(rightward).bar(5)), corners(4, 4, 14, 14));
    EXPECT_EQ(corners(cursorTo(leftward).bar(5)), corners(44, 4, 54, 14));
    EXPECT_EQ(corners(cursorTo(downward).bar(5)), corners(4, 4, 14, 14));
    EXPECT_EQ(corners(cursorTo(upward).bar(5)), corners(4, 44, 14, 54));
}

TEST(BarCursor, goes_on_behind_a_segment)
{
    const QList<std::pair<BarDirection, QRect>> second{{rightward, corners(14, 4, 16, 14)},
                                                       {leftward, corners(42, 4, 44, 14)},
                                                       {downward, corners(4, 14, 14, 16)},
                                                       {upward, corners(4, 42, 14, 44)}};
    for (const auto &[direction, place] : second) {
        BarCursor cursor = cursorTo(direction);
        cursor.goBehind(cursor.bar(5));
        EXPECT_EQ(corners(cursor.bar(1)), place);
    }
}

TEST(BarCursor, goes_back_to_the_base_for_the_next_bar)
{
    BarCursor lying = cursorTo(leftward);
    lying.goBehind(lying.bar(5));
    lying.goToNextBar();
    EXPECT_EQ(corners(lying.bar(5)), corners(44, 18, 54, 28));
    BarCursor standing = cursorTo(upward);
    standing.goToNextBar();
    EXPECT_EQ(corners(standing.bar(5)), corners(18, 44, 28, 54));
}

TEST(BarCursor, puts_captions_before_the_base)
{
    EXPECT_EQ(cursorTo(rightward).caption({20, 6}), QPoint(4 - 4 - 20, 6));
    EXPECT_EQ(cursorTo(leftward).caption({20, 6}), QPoint(54 + 4, 6));
    EXPECT_EQ(cursorTo(upward).caption({20, 6}), QPoint(4 - 5, 54 + 4));
    EXPECT_EQ(cursorTo(downward).caption({20, 6}), QPoint(4 - 5, 4 - 4 - 6));
}

TEST(BarCursor, cuts_fractions_of_lengths)
{
    EXPECT_EQ(cursorTo(rightward).bar(0.9).bottomRight.x(), 5);
    EXPECT_EQ(cursorTo(leftward).bar(0.9).topLeft.x(), 52);
}

TEST(LabelInBar, is_centred_with_the_odd_point_on_the_left_and_below)
{
    EXPECT_EQ(labelInBar({{0, 0}, {20, 20}}, {10, 14}), QPoint(5, 3));
    EXPECT_EQ(labelInBar({{10, 10}, {20, 20}}, {15, 15}), QPoint(7, 8));
}
