// The part of the treemap that knows no graph: which cells there are, and the walk over them.

#include "layout/charts/treemap_tiling.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ORR::Graph::Layout;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr qsizetype end = -1;

// The members that the rest of the walk leads to, `end` for an end.
QList<qsizetype> restOf(TreemapTiling &tiling)
{
    QList<qsizetype> steps;
    while (const auto step = tiling.next())
        steps.append(step->kind == TreemapTiling::Step::End ? end : step->member);
    return steps;
}

const QRectF unit(0, 0, 1, 1);
const QRectF notValid(0, 0, -1, 1);

} // namespace

TEST(LargeEnough, are_cells_of_four_square_points_and_more)
{
    double total = 100.0;
    EXPECT_EQ(largeEnough({90, 6, 4}, 100.0, total), 3);
    EXPECT_EQ(total, 100.0);
    EXPECT_EQ(largeEnough({90, 6.5, 3.5}, 100.0, total), 2);
    EXPECT_EQ(total, 96.5);
}

TEST(LargeEnough, gives_the_room_of_what_is_left_out_to_the_others)
{
    // 3.95 of 100 are too little; of the 98 that are left behind the last they are enough.
    double total = 100.0;
    EXPECT_EQ(largeEnough({94.05, 3.95, 2}, 100.0, total), 2);
    EXPECT_EQ(total, 98.0);
    double all = 100.0;
    EXPECT_EQ(largeEnough({96.05, 3.95}, 100.0, all), 1);
}

TEST(LargeEnough, is_nothing_of_no_total)
{
    double total = 0.0;
    EXPECT_EQ(largeEnough({0, 0}, 100.0, total), 0);
    EXPECT_EQ(largeEnough({}, 100.0, total), 0);
    double doubtful = 10.0;
    EXPECT_EQ(largeEnough({10, notANumber}, 100.0, doubtful), 0);
}

TEST(TreemapCells, share_the_room_in_proportion)
{
    const QList<QRectF> cells = treemapCells({3, 1}, 4.0, QRectF(10, 20, 40, 10));
    ASSERT_EQ(cells.size(), 2);
    EXPECT_EQ(cells.at(0), QRectF(10, 20, 30, 10));
    EXPECT_EQ(cells.at(1), QRectF(40, 20, 10, 10));
}

TEST(TreemapCells, fill_the_room_of_those_that_are_left_out)
{
    const QList<QRectF> cells = treemapCells({100, 0}, 100.0, QRectF(0, 0, 40, 10));
    ASSERT_EQ(cells.size(), 1);
    EXPECT_EQ(cells.at(0), QRectF(0, 0, 40, 10));
}

TEST(TreemapCells, are_none_without_room)
{
    EXPECT_TRUE(treemapCells({1}, 1.0, QRectF()).isEmpty());
    // Two negative sides would have an area.
    EXPECT_TRUE(treemapCells({1}, 1.0, QRectF(0, 0, -10, -10)).isEmpty());
    EXPECT_TRUE(treemapCells({}, 0.0, QRectF(0, 0, 10, 10)).isEmpty());
}

TEST(RoomForMembers, is_the_cell_without_the_margins_and_the_label)
{
    EXPECT_EQ(roomForMembers(QRectF(10, 20, 100, 80), {1, 2, 3, 4}, 15),
              QRectF(QPointF(11, 37), QPointF(107, 96)));
}

TEST(RoomForMembers, is_not_valid_in_a_cell_below_its_label)
{
    EXPECT_FALSE(roomForMembers(QRectF(0, 0, 100, 20), {5, 5, 5, 5}, 15).isValid());
}

TEST(TreemapTiling, goes_through_the_members_in_their_order)
{
    TreemapTiling tiling;
    tiling.enter({unit, unit.translated(1, 0)});
    const auto first = tiling.next();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->kind, TreemapTiling::Step::Member);
    EXPECT_EQ(first->member, 0);
    EXPECT_EQ(first->cell, unit);
    const auto second = tiling.next();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->member, 1);
    EXPECT_EQ(second->cell, unit.translated(1, 0));
    EXPECT_FALSE(tiling.next());
}

TEST(TreemapTiling, goes_on_behind_a_subgraph_that_was_entered)
{
    TreemapTiling tiling;
    tiling.enter({unit, unit});
    ASSERT_TRUE(tiling.next());
    tiling.enter({unit, unit, unit});
    EXPECT_EQ(restOf(tiling), (QList<qsizetype>{0, 1, 2, end, 1}));
}

TEST(TreemapTiling, ends_a_subgraph_without_cells_at_once)
{
    TreemapTiling tiling;
    tiling.enter({unit});
    ASSERT_TRUE(tiling.next());
    tiling.enter({});
    EXPECT_EQ(restOf(tiling), QList<qsizetype>{end});
}

TEST(TreemapTiling, passes_over_cells_that_are_not_valid)
{
    TreemapTiling tiling;
    tiling.enter({notValid, unit, notValid});
    EXPECT_EQ(restOf(tiling), QList<qsizetype>{1});
}

TEST(TreemapTiling, is_nothing_before_it_is_entered)
{
    EXPECT_FALSE(TreemapTiling().next());
}
