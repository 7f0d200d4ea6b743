#include "layout/sequence/uml_places.h"

#include <gtest/gtest.h>

using namespace ORR::Graph::Layout;

namespace {

const GridAnchors anchors{{100, 200, 300}, {60, 90, 120, 150, 190}};

// A fragment on the first cell with sections on those rows.
UmlFragment fragmentOn(const QList<int> &rows, const FragmentCells &cells)
{
    UmlFragment fragment;
    fragment.cells = cells;
    for (const int row : rows)
        fragment.sections.append(UmlSection{row});
    return fragment;
}

FragmentPlace placeOf(const UmlFragment &fragment, const CellExtent &extent,
                      const UmlExtents &extents = {})
{
    return fragmentPlace(fragment, extent, extents, anchors);
}

QRect corners(int left, int top, int right, int bottom)
{
    return {QPoint(left, top), QPoint(right, bottom)};
}

} // namespace

TEST(GridAnchors, read_zero_beyond_the_grid)
{
    EXPECT_EQ(anchors.at({1, 2}), QPoint(300, 90));
    EXPECT_EQ(anchors.at({5, -3}), QPoint(0, 0));
    EXPECT_EQ(anchors.at({-1, 3}), QPoint(0, 0));
}

TEST(BoundsAt, lie_at_their_offset_from_the_anchor)
{
    EXPECT_EQ(boundsAt({3, 2}, {-20, -10, 41, 21}, anchors), QRect(280, 140, 41, 21));
}

TEST(BoundsAt, without_a_size_end_one_unit_before_they_begin)
{
    const QRect bounds = boundsAt({0, 0}, {}, anchors);
    EXPECT_EQ(bounds.topLeft(), QPoint(100, 60));
    EXPECT_EQ(bounds.bottomRight(), QPoint(99, 59));
}

TEST(NodeBounds, are_those_of_the_extent)
{
    EXPECT_EQ(nodeBounds({UmlNode::Object, {1, 1}}, {-3, -3, 6, 6}, anchors), QRect(197, 87, 6, 6));
}

TEST(NodeBounds, of_an_activation_last_from_its_row_to_its_end_row)
{
    UmlNode bar{UmlNode::Activation, {1, 0}, nullptr, 1};
    const CellExtent extent = nodeExtent(bar);
    EXPECT_EQ(nodeBounds(bar, extent, anchors), QRect(95, 90, 10, 0));
    bar.endRow = 3;
    EXPECT_EQ(nodeBounds(bar, extent, anchors), QRect(95, 90, 10, 60));
    bar.endRow = 0; // before it begins
    EXPECT_EQ(nodeBounds(bar, extent, anchors), corners(95, 90, 104, 59));
}

TEST(FragmentPlace, has_a_tag_of_the_size_of_its_label)
{
    UmlFragment fragment = fragmentOn({}, {0, 4, 2});
    fragment.label = {30, 20};
    const FragmentPlace place = placeOf(fragment, {-38, -40, 30, 40});
    EXPECT_EQ(place.tag, QRect(62, 20, 30, 20));
    EXPECT_TRUE(place.sections.isEmpty());
}

TEST(FragmentPlace, has_sections_down_to_where_the_next_one_begins)
{
    EXPECT_EQ(placeOf(fragmentOn({0, 3}, {0, 4, 1}), {-38, -40, 30, 40}).sections,
              (QList<QRect>{corners(62, 20, 212, 150), corners(62, 150, 212, 190)}));
}

TEST(FragmentPlace, over_several_columns_ends_further_out_for_each_level_within)
{
    EXPECT_EQ(placeOf(fragmentOn({0}, {0, 3, 1, 1}), {}).sections.at(0).right(), 200 + 12 + 7);
}

TEST(FragmentPlace, on_one_column_ends_where_the_widest_part_within_does)
{
    UmlFragment fragment = fragmentOn({0}, {0, 1, 0});
    fragment.contents = {{UmlPart::Node, 0}, {UmlPart::Edge, 0}, {UmlPart::Fragment, 0}};
    UmlExtents extents{{{-70, 0, 90, 0}}, {{-5, 0, 10, 10}}, {{5, -10, 45, 10}}};
    EXPECT_EQ(placeOf(fragment, {}, extents).sections.at(0).right(), 150);
    extents.fragments[0].width = 130;
    EXPECT_EQ(placeOf(fragment, {}, extents).sections.at(0).right(), 160);
}

TEST(FragmentPlace, on_one_column_never_ends_left_of_it)
{
    UmlFragment fragment = fragmentOn({0}, {0, 1, 0});
    fragment.contents = {{UmlPart::Node, 0}};
    EXPECT_EQ(placeOf(fragment, {}, {{}, {{-60, 0, 50, 0}}, {}}).sections.at(0).right(), 100);
}
