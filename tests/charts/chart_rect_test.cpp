#include "layout/charts/chart_rect.h"

#include <gtest/gtest.h>

#include <climits>

using namespace ORR::Graph::Layout;

TEST(ChartRect, is_the_rectangle_asked_for)
{
    EXPECT_EQ(chartRect(4, 5, 100, 80), QRect(4, 5, 100, 80));
    EXPECT_EQ(chartRect(4, 5, -4, 0), QRect(4, 5, -4, 0));
    EXPECT_EQ(chartRect(0, 0, INT_MAX, 1).width(), INT_MAX);
}

TEST(ChartRect, is_cut_where_no_int_can_hold_it)
{
    EXPECT_EQ(chartRect(4, 4, Q_INT64_C(1) << 40, 1).right(), INT_MAX);
    EXPECT_EQ(chartRect(4, 4, -(Q_INT64_C(1) << 40), 1).width(), INT_MIN + 1);
    EXPECT_EQ(chartRect(0, 0, 1, INT_MIN).height(), INT_MIN + 1);
}
