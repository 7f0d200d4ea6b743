#include "layout/charts/sunburst_slices.h"

#include <gtest/gtest.h>

using namespace ORR::Graph::Layout;

TEST(NarrowSlices, are_those_below_the_smallest_sweep)
{
    double total = 1000.0;
    EXPECT_EQ(narrowSlices({0.5, 0.9, 400, 598.6}, 360.0, total), 1);
    EXPECT_EQ(total, 999.5);
}

TEST(NarrowSlices, give_their_room_to_the_next)
{
    // 0.05 of 63 is 0.286 degrees of 360; without it 0.0507 of 62.95 is just 0.29.
    double total = 62.95 + 0.05;
    EXPECT_EQ(narrowSlices({0.05, 0.0508, 62.8992}, 360.0, total), 1);
    double all = 62.95 + 0.05;
    EXPECT_EQ(narrowSlices({0.0508, 62.9492}, 360.0, all), 0);
}

TEST(NarrowSlices, are_all_of_no_total)
{
    double total = 0.0;
    EXPECT_EQ(narrowSlices({0, 0, 0}, 360.0, total), 3);
    EXPECT_EQ(narrowSlices({}, 360.0, total), 0);
}

TEST(SunburstSlices, follow_each_other_in_proportion)
{
    const QList<SunburstSlice> slices = slicesOf({1, 2, 1}, 4.0, {10, 180, 72, 144});
    ASSERT_EQ(slices.size(), 3);
    EXPECT_EQ(slices.at(0).a0, 10.0);
    EXPECT_EQ(slices.at(0).sweep, 45.0);
    EXPECT_EQ(slices.at(1).a0, 55.0);
    EXPECT_EQ(slices.at(1).sweep, 90.0);
    EXPECT_EQ(slices.at(2).a0, 145.0);
    for (const SunburstSlice &slice : slices) {
        EXPECT_EQ(slice.r0, 72.0);
        EXPECT_EQ(slice.r1, 144.0);
    }
}
