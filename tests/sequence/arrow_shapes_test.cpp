#include "layout/sequence/arrow_shapes.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ORR::Graph::Layout;

namespace {

constexpr int highest = std::numeric_limits<int>::max();
constexpr int lowest = std::numeric_limits<int>::min();

const QRect leftBox(QPoint(10, 20), QPoint(19, 60));
const QRect rightBox(QPoint(100, 30), QPoint(109, 70));

} // namespace

TEST(LevelShaft, runs_between_the_sides_that_face_each_other)
{
    const Shaft rightward = levelShaft(leftBox, rightBox, 35, true);
    EXPECT_EQ(rightward.tip, QPoint(100, 35));
    EXPECT_EQ(rightward.start, QPoint(19, 35));
    const Shaft leftward = levelShaft(rightBox, leftBox, 35, false);
    EXPECT_EQ(leftward.tip, QPoint(19, 35));
    EXPECT_EQ(leftward.start, QPoint(100, 35));
}

TEST(ArrowHead, is_six_long_and_three_to_either_side)
{
    const ArrowHead rightward = arrowHead({100, 35}, true);
    EXPECT_EQ(rightward.lower, QPoint(94, 38));
    EXPECT_EQ(rightward.upper, QPoint(94, 32));
    const ArrowHead leftward = arrowHead({19, 35}, false);
    EXPECT_EQ(leftward.lower, QPoint(25, 38));
    EXPECT_EQ(leftward.upper, QPoint(25, 32));
}

TEST(ArrowHead, stays_within_an_int)
{
    EXPECT_EQ(arrowHead({highest, highest}, false).lower, QPoint(highest, highest));
    EXPECT_EQ(arrowHead({lowest, lowest}, true).upper, QPoint(lowest, lowest));
}

TEST(Hook, without_a_label_meets_halfway_down_its_box)
{
    const QRect to(QPoint(12, 50), QPoint(23, 60));
    const Hook hook = hookBeside(QRect(20, 40, 10, 10), leftBox, to, false);
    EXPECT_EQ(hook.out, (QList<QPoint>{{19, 40}, {33, 40}, {33, 44}}));
    EXPECT_EQ(hook.back, (QList<QPoint>{{23, 50}, {33, 50}, {33, 44}}));
}

TEST(Hook, with_a_label_draws_three_at_either_end)
{
    const QRect to(QPoint(12, 50), QPoint(23, 60));
    const Hook hook = hookBeside(QRect(20, 30, 40, 20), leftBox, to, true);
    EXPECT_EQ(hook.out.constLast(), QPoint(33, 33));
    EXPECT_EQ(hook.back.constLast(), QPoint(33, 47));
}
