// The parts of the declaration layout that know no graph: sizes, places, lanes.

#include "layout/graflib/decl_lanes.h"
#include "layout/graflib/decl_places.h"
#include "layout/graflib/decl_sizes.h"

#include <gtest/gtest.h>

using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

constexpr GridSpacing spacing{.rowGap = 2, .columnGap = 3, .extra = 16};
const QRectF place(0, 0, 100, 60);

// Two cells above each other and one beside the upper one.
const QList<MeasuredCell> threeCells{{0, 0, {10, 20}}, {1, 0, {30, 5}}, {0, 1, {7, 8}}};

constexpr FourNumbers four(double a, double b, double c, double d)
{
    return {a, b, c, d};
}

} // namespace

TEST(DeclSizes, a_table_has_its_largest_cells)
{
    EXPECT_EQ(gridSize(threeCells, GridMode::Table, spacing), QSizeF(30 + 3 + 7 + 16, 20 + 2 + 5));
}

// The keys of both axes are then those of the rows.
TEST(DeclSizes, free_rows_are_as_wide_as_the_longest)
{
    EXPECT_EQ(
        gridSize({{0, 0, {10, 20}}, {1, 1, {30, 5}}, {0, 0, {7, 8}}}, GridMode::ByRows, spacing),
        QSizeF(30 + 16, 20 + 2 + 5));
}

TEST(DeclSizes, free_columns_are_as_high_as_the_highest)
{
    EXPECT_EQ(
        gridSize({{0, 0, {10, 20}}, {0, 0, {30, 5}}, {1, 1, {7, 8}}}, GridMode::ByColumns, spacing),
        QSizeF(30 + 3 + 7 + 16, 20 + 2 + 5));
}

TEST(DeclSizes, a_grid_without_cells_has_the_extra_room_only)
{
    EXPECT_EQ(gridSize({}, GridMode::Table, spacing), QSizeF(16, 0));
}

TEST(DeclSizes, a_stack_stands_four_points_above_the_grid)
{
    const QList<StackedNode> stack{{{40, 10}, 5}, {{20, 10}, 0}};
    EXPECT_EQ(sizeWithStack({10, 20}, true, stack, 3), QSizeF(45, 20 + 10 + 3 + 10 + 4));
    EXPECT_EQ(sizeWithStack({0, 0}, false, stack, 3), QSizeF(45, 10 + 3 + 10));
    EXPECT_EQ(sizeWithStack({0, 0}, false, {{{40, 10}, -5}}, 3), QSizeF(35, 10));
}

TEST(DeclPlaces, content_position_has_a_vertical_and_a_horizontal_letter)
{
    EXPECT_EQ(contentPosition(u"mr"_s).vertical, u'm');
    EXPECT_EQ(contentPosition(u"mr"_s).horizontal, u'r');
    EXPECT_EQ(contentPosition(u"r"_s).horizontal, u'l');
    EXPECT_EQ(contentPosition(u"brx"_s).vertical, u'b');
    EXPECT_EQ(contentPosition(u"brx"_s).horizontal, u'l');
    EXPECT_EQ(contentPosition({}).vertical, u't');
}

TEST(DeclPlaces, content_stands_where_its_letters_say)
{
    const auto corner = [](QChar vertical, QChar horizontal) {
        return contentCorner(place, {10, 20}, {vertical, horizontal});
    };
    EXPECT_EQ(corner(u't', u'l'), QPointF(0, 0));
    EXPECT_EQ(corner(u'm', u'c'), QPointF(45, 20));
    EXPECT_EQ(corner(u'b', u'r'), QPointF(90, 40));
}

TEST(DeclPlaces, nodes_of_a_stack_go_by_the_place_and_not_by_the_content)
{
    EXPECT_EQ(nodeLeft(place, 7, 10, {u't', u'l'}), 7);
    EXPECT_EQ(nodeLeft(place, 7, 10, {u't', u'c'}), 45);
    EXPECT_EQ(nodeLeft(place, 7, 10, {u't', u'r'}), 90);
}

TEST(DeclPlaces, a_margin_moves_the_left_and_right_side_only)
{
    EXPECT_EQ(placeWithinMargin(place, 8), QRectF(8, 0, 84, 60));
}

TEST(DeclPlaces, nodes_of_a_stack_stand_below_each_other_above_the_grid)
{
    const QList<StackedNode> stack{{{40, 10}, 5}, {{20, 15}, 0}};
    const StackPlaces places = stackPlaces(stack, place, {7, 2}, {u't', u'l'}, 3);
    EXPECT_EQ(places.nodes, (QList<QPointF>{{12, 2}, {7, 15}}));
    EXPECT_EQ(places.gridCorner, QPointF(7, 15 + 15 + 4));
}

TEST(DeclPlaces, each_node_of_a_stack_stands_at_the_right_by_itself_and_moves_to_the_right)
{
    const QList<StackedNode> stack{{{40, 10}, 5}, {{20, 15}, 0}};
    const StackPlaces places = stackPlaces(stack, place, {60, 2}, {u't', u'r'}, 3);
    EXPECT_EQ(places.nodes, (QList<QPointF>{{65, 2}, {80, 15}}));
    EXPECT_EQ(places.gridCorner, QPointF(60, 34));
}

TEST(DeclPlaces, without_a_stack_the_grid_starts_where_the_content_does)
{
    const StackPlaces places = stackPlaces({}, place, {7, 2}, {u'b', u'r'}, 3);
    EXPECT_TRUE(places.nodes.isEmpty());
    EXPECT_EQ(places.gridCorner, QPointF(7, 2));
}

TEST(DeclPlaces, the_last_cells_fill_the_place)
{
    const QList<QRectF> places = cellPlaces({{0, 0, {10, 20}}, {1, 0, {30, 5}}, {0, 1, {7, 8}}},
                                            {1, 2}, place, GridMode::Table, spacing);
    EXPECT_EQ(places.at(0), QRectF(QPointF(1, 2), QPointF(31, 22)));
    EXPECT_EQ(places.at(1), QRectF(QPointF(1, 24), QPointF(31, 60)));
    EXPECT_EQ(places.at(2), QRectF(QPointF(50, 2), QPointF(100, 22)));
}

TEST(DeclLanes, cells_in_use_get_their_offsets_in_the_order_of_the_lanes)
{
    EXPECT_EQ(laneOffsets({{0, 0}, {1, 0}, {0, 1}}), (QList<double>{6, 12, 0}));
    EXPECT_EQ(laneOffsets({{1, 2}, {0, 2}, {0, 0}}), (QList<double>{6, 0, 0}));
    EXPECT_EQ(laneOffsets({{2, 0}, {1, 0}}), (QList<double>{0, 0}));
}

TEST(DeclLanes, of_two_cells_at_one_address_the_later_one_counts)
{
    EXPECT_EQ(laneOffsets({{0, 1}, {0, 0}, {0, 0}}), (QList<double>{0, 0, 6}));
}

TEST(DeclLanes, an_edge_crosses_in_the_middle_with_the_offsets_of_the_other_ends)
{
    const DeclEdge line = declEdge({0, 10, 40}, 6, {100, 60, 40}, 12);
    EXPECT_EQ(line.x, four(40, 70, 70, 100));
    EXPECT_EQ(line.y, four(22, 22, 66, 66));
    EXPECT_EQ(declEdge({100, 10, 40}, 0, {0, 60, 40}, 0).x, four(100, 70, 70, 40));
    EXPECT_EQ(declEdge({50, 10, 40}, 0, {54, 60, 40}, 0).x, four(50, 35, 35, 54));
}
