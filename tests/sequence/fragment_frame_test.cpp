#include "layout/sequence/fragment_frame.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ORR::Graph::Layout;

namespace {

constexpr int highest = std::numeric_limits<int>::max();
constexpr int lowest = std::numeric_limits<int>::min();

// The cells of a fragment that starts on a cell and holds nothing.
FragmentCells cellsAt(int row, int col)
{
    return {col, row, col};
}

} // namespace

TEST(FragmentCells, reach_out_to_what_is_put_in)
{
    FragmentCells cells = cellsAt(2, 5);
    cells.include(1, 3);
    cells.include(7, 6);
    EXPECT_EQ(cells.col, 3);
    EXPECT_EQ(cells.lastRow, 7);
    EXPECT_EQ(cells.lastCol, 6);
}

TEST(FragmentCells, of_a_section_reach_down_only)
{
    FragmentCells cells = cellsAt(2, 5);
    cells.includeRow(4);
    cells.includeRow(3);
    EXPECT_EQ(cells.lastRow, 4);
    EXPECT_EQ(cells.col, 5);
    EXPECT_EQ(cells.lastCol, 5);
}

TEST(FragmentCells, end_one_row_below)
{
    FragmentCells cells = cellsAt(2, 5);
    cells.close();
    EXPECT_EQ(cells.lastRow, 3);
    FragmentCells beyond = cellsAt(highest, 0);
    beyond.close();
    EXPECT_EQ(beyond.lastRow, highest);
}

TEST(FragmentCells, lie_around_the_deepest_of_the_fragments_within)
{
    FragmentCells deep = cellsAt(6, 4);
    deep.nesting = 2;
    FragmentCells shallow = cellsAt(9, 1);
    FragmentCells cells = cellsAt(0, 2);
    cells.enclose(deep);
    cells.enclose(shallow);
    EXPECT_EQ(cells.nesting, 3);
    EXPECT_EQ(cells.lastRow, 9);
    EXPECT_EQ(cells.lastCol, 4);
    EXPECT_EQ(cells.col, 2); // what stands further left was put in already
}

TEST(FragmentCells, have_a_frame_seven_further_out_for_each_level_within)
{
    FragmentCells cells = cellsAt(0, 0);
    EXPECT_EQ(cells.frameReach(), 12);
    cells.nesting = 2;
    EXPECT_EQ(cells.frameReach(), 12 + 2 * 7);
    cells.nesting = highest;
    EXPECT_EQ(cells.frameReach(), highest);
}

TEST(FragmentSize, has_the_first_section_below_the_title_and_the_widest_label)
{
    EXPECT_EQ(fragmentSize({20, 10}, {}), QSize(20, 10));
    EXPECT_EQ(fragmentSize({20, 10}, {{5, 12}, {30, 99}}), QSize(30, 22));
    EXPECT_EQ(fragmentSize({20, highest}, {{5, 12}}), QSize(20, highest));
}

TEST(FrameRight, is_that_of_what_reaches_farthest_and_never_left_of_the_anchor)
{
    EXPECT_EQ(frameRight(100, {5, 12, -3}), 112);
    EXPECT_EQ(frameRight(100, {-5}), 100);
    EXPECT_EQ(frameRight(100, {}), 100);
    EXPECT_EQ(frameRight(highest, {5}), highest);
}

TEST(FragmentOffset, is_eight_beyond_the_labels)
{
    EXPECT_EQ(fragmentOffset(40, {}), -48);
}

TEST(FragmentOffset, is_seven_beyond_the_nearest_fragment_within)
{
    EXPECT_EQ(fragmentOffset(40, {-60, -50, -55}), -67);
    EXPECT_EQ(fragmentOffset(40, {-30}), -48);
    EXPECT_EQ(fragmentOffset(40, {-41}), -48);
    EXPECT_EQ(fragmentOffset(40, {-42}), -49);
}

TEST(FragmentOffset, stays_within_an_int)
{
    EXPECT_EQ(fragmentOffset(highest, {}), lowest);
    EXPECT_EQ(fragmentOffset(0, {lowest}), lowest);
}

TEST(SectionBands, end_where_the_next_one_begins)
{
    const QList<SectionBand> bands = sectionBands(10, {25, 40, 70}, 90);
    ASSERT_EQ(bands.size(), 3);
    EXPECT_EQ(bands.at(0).top, 10); // and not on its row: the title stands above that
    EXPECT_EQ(bands.at(0).bottom, 40);
    EXPECT_EQ(bands.at(1).top, 40);
    EXPECT_EQ(bands.at(1).bottom, 70);
    EXPECT_EQ(bands.at(2).top, 70);
    EXPECT_EQ(bands.at(2).bottom, 90);
}

TEST(SectionBands, of_one_section_are_the_whole_fragment)
{
    const QList<SectionBand> bands = sectionBands(10, {25}, 90);
    ASSERT_EQ(bands.size(), 1);
    EXPECT_EQ(bands.at(0).top, 10);
    EXPECT_EQ(bands.at(0).bottom, 90);
    EXPECT_TRUE(sectionBands(10, {}, 90).isEmpty());
}

TEST(TagOutline, is_a_rectangle_with_its_lower_right_corner_cut)
{
    EXPECT_EQ(tagOutline(QRect(QPoint(10, 20), QPoint(50, 40))),
              (QList<QPoint>{{10, 20}, {50, 20}, {50, 37}, {47, 40}, {10, 40}, {10, 20}}));
}
