#include "layout/sequence/object_extents.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ORR::Graph::Layout;

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

const QRect upper(10, 20, 30, 5);
const QRect lower(10, 60, 30, 5);

} // namespace

TEST(GridRect, is_inclusive_and_saturates)
{
    EXPECT_EQ(gridRect(10, 20, 30, 40), QRect(10, 20, 30, 40));
    EXPECT_EQ(gridRect(highest, lowest, 10, -10).topLeft(), QPoint(highest, lowest));
    EXPECT_EQ(gridRect(highest, lowest, 10, -10).bottomRight(), QPoint(highest, lowest));
}

TEST(PaddedSize, has_three_more_on_every_side_and_saturates)
{
    EXPECT_EQ(paddedSize({40, 20}), QSize(46, 26));
    EXPECT_EQ(paddedSize({highest, 20}), QSize(highest, 26));
}

TEST(AlignedOffset, lies_before_the_anchor_on_it_or_after_it)
{
    EXPECT_EQ(alignedOffset(9, CellAlign::Before), -9);
    EXPECT_EQ(alignedOffset(9, CellAlign::Centre), -4);
    EXPECT_EQ(alignedOffset(9, CellAlign::After), 0);
    EXPECT_EQ(alignedOffset(-9, CellAlign::Centre), 4);
    EXPECT_EQ(alignedOffset(lowest, CellAlign::Before), highest);
}

TEST(ActivationOffset, is_four_further_right_for_each_level)
{
    EXPECT_EQ(activationOffset(0), -5);
    EXPECT_EQ(activationOffset(2), 3);
    EXPECT_EQ(activationOffset(highest), highest);
}

TEST(ActivationBar, lasts_from_its_anchor_to_its_end)
{
    EXPECT_EQ(activationBar({100, 20}, 50, 1), QRect(99, 20, 10, 30));
    EXPECT_EQ(activationBar({100, 20}, 20, 0).height(), 0);
    EXPECT_EQ(activationBar({100, 20}, 5, 0).height(), -15);
}

TEST(LifeLine, runs_between_the_sides_that_face_each_other)
{
    EXPECT_EQ(lifeLine(upper, lower, 25, true), (QList<QPoint>{{25, 24}, {25, 60}}));
    EXPECT_EQ(lifeLine(lower, upper, 25, false), (QList<QPoint>{{25, 60}, {25, 24}}));
}

TEST(MessageSize, within_a_column_is_at_least_ten)
{
    EXPECT_EQ(messageSize(4, false), 4);
    EXPECT_EQ(messageSize(4, true), 10);
    EXPECT_EQ(messageSize(14, true), 14);
}

TEST(OffsetBeside, starts_at_the_right_side_or_ends_at_the_left_one)
{
    EXPECT_EQ(offsetBeside(-5, 12, true, 40), 7);
    EXPECT_EQ(offsetBeside(-5, 12, false, 40), -45);
    EXPECT_EQ(offsetBeside(highest, 12, true, 40), highest);
    EXPECT_EQ(offsetBeside(lowest, 12, false, 40), lowest);
}

TEST(ReturnOffset, reaches_three_below_the_line_or_keeps_ten_free)
{
    EXPECT_EQ(returnOffset(true, 20), -17);
    EXPECT_EQ(returnOffset(false, 0), -10);
}
