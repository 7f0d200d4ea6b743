#include "layout/charts/bubble_places.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace ORR::Graph::Layout;

TEST(BubbleRadius, is_the_one_given_or_that_of_the_area)
{
    EXPECT_EQ(bubbleRadius(5.0, 314.0), 5.0);
    EXPECT_EQ(bubbleRadius(0.0, 314.0), 10.0); // 3.14 and not pi
    EXPECT_EQ(bubbleRadius(-1.0, 0.0), 0.0);
    EXPECT_EQ(bubbleRadius(std::nan(""), 314.0), 10.0);
}

TEST(BubbleRadius, is_bounded_and_may_be_no_number)
{
    EXPECT_EQ(bubbleRadius(1e300, 0.0), 1e290);
    EXPECT_TRUE(std::isnan(bubbleRadius(0.0, -1.0)));
}

TEST(PaddedCircle, is_one_larger)
{
    EXPECT_EQ(paddedCircle(4.0).r, 5.0);
}

TEST(FittingScale, leaves_four_points_around_the_longer_side)
{
    EXPECT_EQ(fittingScale(3.0, {20, 14}), 4.0);
    EXPECT_EQ(fittingScale(3.0, {14, 20}), 4.0);
}

TEST(FittingScale, is_nothing_without_a_circle)
{
    EXPECT_EQ(fittingScale(0.0, {20, 14}), 0.0);
    EXPECT_EQ(fittingScale(std::nan(""), {20, 14}), 0.0);
}

TEST(BubbleScale, is_the_largest_that_anything_asks_for)
{
    EXPECT_EQ(bubbleScale(10.0, 0.5, 0.0), 1.0);
    EXPECT_EQ(bubbleScale(10.0, 3.0, 40.0), 3.0);
    EXPECT_EQ(bubbleScale(10.0, 3.0, 80.0), 4.0);
    EXPECT_EQ(bubbleScale(0.0, 0.0, 80.0), 1.0);
}

TEST(BubbleScale, ends_where_an_int_can_measure_the_drawing)
{
    const double largest = std::numeric_limits<int>::max();
    EXPECT_EQ(bubbleScale(1.0, 1e300, 0.0), largest / 2);
    EXPECT_EQ(bubbleScale(largest, 1.0, 0.0), 0.5);
}
