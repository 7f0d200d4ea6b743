#include "layout/sequence/uml_parts.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;

TEST(SectionMarker, has_room_for_its_label_below_its_row_on_the_column_of_the_fragment)
{
    UmlFragment fragment;
    fragment.row = 1;
    fragment.cells = {3, 4, 6};
    DotNode node;
    const UmlNode marker = sectionMarker(9, fragment, &node);
    EXPECT_EQ(marker.kind, UmlNode::Spacer);
    EXPECT_EQ(marker.node, &node);
    EXPECT_EQ(marker.cell.row, 9);
    EXPECT_EQ(marker.cell.col, 3);
    EXPECT_EQ(marker.room, QSize(0, sizeOfLabel));
    EXPECT_EQ(marker.xAlign, CellAlign::Centre);
    EXPECT_EQ(marker.yAlign, CellAlign::After);
}

TEST(ClosingSpacer, keeps_room_right_of_the_last_cell_for_the_frame)
{
    UmlFragment fragment;
    fragment.cells = {0, 5, 3, 2};
    const UmlNode spacer = closingSpacer(fragment);
    EXPECT_EQ(spacer.kind, UmlNode::Spacer);
    EXPECT_EQ(spacer.node, nullptr);
    EXPECT_EQ(spacer.cell.row, 5);
    EXPECT_EQ(spacer.cell.col, 3);
    EXPECT_EQ(spacer.room, QSize(7 * 2 + 12, 5));
    EXPECT_EQ(spacer.xAlign, CellAlign::After);
    EXPECT_EQ(spacer.yAlign, CellAlign::Centre);
}

TEST(UmlParts, tell_the_way_of_an_edge_by_the_columns_of_its_ends)
{
    UmlParts parts;
    parts.nodes = {{UmlNode::Object, {0, 0}}, {UmlNode::Object, {1, 2}}, {UmlNode::Object, {2, 2}}};
    const UmlEdge right{UmlEdge::Message, {}, nullptr, 0, 1};
    const UmlEdge left{UmlEdge::Message, {}, nullptr, 1, 0};
    const UmlEdge down{UmlEdge::Message, {}, nullptr, 1, 2};
    EXPECT_TRUE(runsRight(parts, right));
    EXPECT_FALSE(runsRight(parts, left));
    EXPECT_FALSE(runsRight(parts, down));
    EXPECT_FALSE(isWithinColumn(parts, right));
    EXPECT_FALSE(isWithinColumn(parts, left));
    EXPECT_TRUE(isWithinColumn(parts, down));
}
