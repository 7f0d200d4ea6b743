#include "layout/sequence/uml_extents.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ORR::Graph::Layout;

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

// Offsets and sizes side by side.
QList<int> numbers(const CellExtent &extent)
{
    return {extent.xOffset, extent.yOffset, extent.width, extent.height};
}

UmlNode labelled(UmlNode::Kind kind, QSize label)
{
    UmlNode node{kind, {}};
    node.label = label;
    return node;
}

UmlNode activation(int nesting, UmlCell cell = {})
{
    UmlNode node{UmlNode::Activation, cell};
    node.nesting = nesting;
    return node;
}

UmlNode spacer(QSize room, CellAlign xAlign, CellAlign yAlign, QSize label = {0, 0})
{
    UmlNode node = labelled(UmlNode::Spacer, label);
    node.room = room;
    node.xAlign = xAlign;
    node.yAlign = yAlign;
    return node;
}

// An edge that starts on column 1.
UmlEdge edgeOf(UmlEdge::Kind kind, QSize label)
{
    UmlEdge edge{kind, {0, 1}};
    edge.label = label;
    return edge;
}

UmlFragment fragmentOf(QSize label, const QList<QSize> &sections = {})
{
    UmlFragment fragment;
    fragment.label = label;
    for (const QSize section : sections)
        fragment.sections.append({0, nullptr, section});
    return fragment;
}

// Fragments that lie within each other, each on its column.
UmlParts nested(const QList<UmlFragment> &fragments)
{
    UmlParts parts;
    parts.fragments = fragments;
    for (qsizetype i = 1; i < fragments.size(); ++i)
        parts.fragments[i - 1].contents.append({UmlPart::Fragment, i});
    return parts;
}

const CellExtent tail{-1, 0, 10, 10}; // a nested activation
constexpr QSize label(40, 20);

} // namespace

TEST(NodeExtent, of_an_object_is_its_label_centred_with_halves_truncated)
{
    EXPECT_EQ(numbers(nodeExtent(labelled(UmlNode::Object, {41, 21}))),
              (QList<int>{-20, -10, 41, 21}));
    EXPECT_EQ(numbers(nodeExtent(labelled(UmlNode::Object, {0, 0}))), (QList<int>{0, 0, 0, 0}));
}

TEST(NodeExtent, of_an_activation_is_ten_by_ten_whatever_its_label)
{
    EXPECT_EQ(numbers(nodeExtent(labelled(UmlNode::Activation, label))),
              (QList<int>{-5, 0, 10, 10}));
}

TEST(NodeExtent, of_an_activation_is_four_further_right_for_each_level_of_nesting)
{
    EXPECT_EQ(nodeExtent(activation(1)).xOffset, -1);
    EXPECT_EQ(nodeExtent(activation(3)).xOffset, 7);
    EXPECT_EQ(nodeExtent(activation(-1)).xOffset, -9);
    EXPECT_EQ(nodeExtent(activation(highest)).xOffset, highest);
    EXPECT_EQ(nodeExtent(activation(lowest)).xOffset, lowest);
}

TEST(NodeExtent, of_a_found_message_is_six_by_six_whatever_its_label)
{
    EXPECT_EQ(numbers(nodeExtent(labelled(UmlNode::FoundMessage, label))),
              (QList<int>{-3, -3, 6, 6}));
}

TEST(NodeExtent, of_a_spacer_is_the_room_that_it_asks_for)
{
    const auto extentOf = [](QSize room) {
        return nodeExtent(spacer(room, CellAlign::Centre, CellAlign::Centre, label));
    };
    EXPECT_EQ(numbers(extentOf({31, 30})), (QList<int>{-15, -15, 31, 30}));
    EXPECT_EQ(numbers(extentOf({sizeOfLabel, 30})), (QList<int>{-20, -15, 40, 30}));
    EXPECT_EQ(numbers(extentOf({31, sizeOfLabel})), (QList<int>{-15, -10, 31, 20}));
}

TEST(NodeExtent, of_a_spacer_hangs_before_its_anchor_stands_on_it_or_hangs_after_it)
{
    using enum CellAlign;
    EXPECT_EQ(numbers(nodeExtent(spacer({41, 31}, Before, Before))),
              (QList<int>{-41, -31, 41, 31}));
    EXPECT_EQ(numbers(nodeExtent(spacer({41, 31}, Centre, After))), (QList<int>{-20, 0, 41, 31}));
    EXPECT_EQ(numbers(nodeExtent(spacer({41, 31}, After, Centre))), (QList<int>{0, -15, 41, 31}));
}

TEST(NodeExtent, of_any_spacer_keeps_its_offset_within_an_int)
{
    using enum CellAlign;
    EXPECT_EQ(nodeExtent(spacer({lowest, lowest}, Before, Centre)).xOffset, highest);
    EXPECT_EQ(nodeExtent(spacer({lowest, lowest}, Before, Centre)).yOffset, 1 << 30);
    EXPECT_EQ(nodeExtent(spacer({highest, highest}, Before, Before)).xOffset, -highest);
}

TEST(EdgeExtent, of_a_lifeline_is_its_label_centred)
{
    EXPECT_EQ(numbers(edgeExtent(edgeOf(UmlEdge::LifeLine, label), 1, tail)),
              (QList<int>{-20, -10, 40, 20}));
}

TEST(EdgeExtent, of_a_message_hangs_above_its_row_beside_its_tail)
{
    const UmlEdge message = edgeOf(UmlEdge::Message, label);
    EXPECT_EQ(numbers(edgeExtent(message, 2, tail)), (QList<int>{-1 + 10, -20, 40, 20}));
    EXPECT_EQ(numbers(edgeExtent(message, 0, tail)), (QList<int>{-1 - 40, -20, 40, 20}));
    const UmlEdge bare = edgeOf(UmlEdge::Message, {0, 0});
    EXPECT_EQ(numbers(edgeExtent(bare, 2, tail)), (QList<int>{-1 + 10, 0, 0, 0}));
}

TEST(EdgeExtent, of_a_message_within_a_column_is_at_least_ten_by_ten)
{
    EXPECT_EQ(numbers(edgeExtent(edgeOf(UmlEdge::Message, {0, 0}), 1, tail)),
              (QList<int>{9, -10, 10, 10}));
    EXPECT_EQ(numbers(edgeExtent(edgeOf(UmlEdge::Message, label), 1, tail)),
              (QList<int>{9, -20, 40, 20}));
}

TEST(EdgeExtent, of_a_return_reaches_three_below_its_line)
{
    const UmlEdge back = edgeOf(UmlEdge::Return, label);
    EXPECT_EQ(numbers(edgeExtent(back, 2, tail)), (QList<int>{-1 + 10, 3 - 20, 40, 20}));
    EXPECT_EQ(numbers(edgeExtent(back, 0, tail)), (QList<int>{-1 - 40, 3 - 20, 40, 20}));
}

TEST(EdgeExtent, of_a_return_without_a_label_keeps_ten_free_above_its_row)
{
    EXPECT_EQ(numbers(edgeExtent(edgeOf(UmlEdge::Return, {0, 0}), 0, tail)),
              (QList<int>{-1, -10, 0, 0}));
}

TEST(EdgeExtent, within_a_column_a_return_stands_on_the_left_where_a_message_stands_on_the_right)
{
    EXPECT_EQ(edgeExtent(edgeOf(UmlEdge::Return, label), 1, tail).xOffset, -1 - 40);
    EXPECT_EQ(edgeExtent(edgeOf(UmlEdge::Message, label), 1, tail).xOffset, -1 + 10);
}

TEST(FragmentExtent, is_as_high_as_its_label_and_that_of_its_first_section)
{
    const CellExtent extent = fragmentExtent(fragmentOf({30, 20}, {{10, 35}, {10, 50}}), {});
    EXPECT_EQ(extent.height, 20 + 35);
    EXPECT_EQ(extent.yOffset, -(20 + 35));
    EXPECT_EQ(fragmentExtent(fragmentOf({30, 20}), {}).height, 20);
}

TEST(FragmentExtent, is_as_wide_as_the_widest_of_its_labels)
{
    EXPECT_EQ(fragmentExtent(fragmentOf({90, 20}, {{10, 20}, {20, 20}}), {}).width, 90);
    EXPECT_EQ(fragmentExtent(fragmentOf({30, 20}, {{10, 20}, {70, 20}}), {}).width, 70);
}

TEST(FragmentExtent, hangs_eight_left_of_its_column_or_further_around_those_within)
{
    EXPECT_EQ(fragmentExtent(fragmentOf({30, 20}), {}).xOffset, -8 - 30);
    EXPECT_EQ(fragmentExtent(fragmentOf({30, 20}), {-50, -40}).xOffset, -50 - 7);
    EXPECT_EQ(fragmentExtent(fragmentOf({90, 20}), {-50}).xOffset, -8 - 90);
}

TEST(ExtentsOf, moves_a_fragment_seven_left_of_each_within_on_the_same_column)
{
    const UmlExtents extents =
        extentsOf(nested({fragmentOf({5, 20}), fragmentOf({0, 0}), fragmentOf({80, 20})}));
    const int innermost = -8 - 80;
    EXPECT_EQ(extents.fragments.at(2).xOffset, innermost);
    EXPECT_EQ(extents.fragments.at(1).xOffset, innermost - 7);
    EXPECT_EQ(extents.fragments.at(0).xOffset, innermost - 7 - 7);
}

TEST(ExtentsOf, moves_no_fragment_for_one_on_another_column)
{
    UmlParts parts = nested({fragmentOf({5, 20}), fragmentOf({80, 20})});
    parts.fragments[1].cells.col = 1;
    EXPECT_EQ(extentsOf(parts).fragments.at(0).xOffset, -8 - 5);
}

TEST(ExtentsOf, hangs_an_edge_on_its_tail_and_turns_it_to_its_head)
{
    UmlParts parts;
    parts.nodes = {labelled(UmlNode::Object, label), activation(1, {0, 1}), activation(0, {0, 2})};
    UmlEdge edge = edgeOf(UmlEdge::Message, label);
    edge.tail = 1;
    edge.head = 2;
    parts.edges = {edge};
    const UmlExtents extents = extentsOf(parts);
    EXPECT_EQ(extents.nodes.size(), 3);
    EXPECT_EQ(extents.edges.at(0).xOffset, -1 + 10);
    parts.edges[0].head = 0;
    EXPECT_EQ(extentsOf(parts).edges.at(0).xOffset, -1 - 40);
}

TEST(ExtentsOf, finds_the_extent_of_each_part)
{
    UmlParts parts;
    parts.fragments = {fragmentOf({11, 20})};
    parts.nodes = {labelled(UmlNode::Object, {22, 20})};
    parts.edges = {edgeOf(UmlEdge::LifeLine, {33, 20})};
    const UmlExtents extents = extentsOf(parts);
    EXPECT_EQ(extents.of({UmlPart::Fragment, 0}).width, 11);
    EXPECT_EQ(extents.of({UmlPart::Node, 0}).width, 22);
    EXPECT_EQ(extents.of({UmlPart::Edge, 0}).width, 33);
}

TEST(ExtentsOf, measures_a_chain_of_a_hundred_thousand_fragments)
{
    const UmlExtents extents = extentsOf(nested(QList<UmlFragment>(100'000)));
    EXPECT_EQ(extents.fragments.constFirst().xOffset, -8 - 7 * 99'999);
}

TEST(GridClaims, are_those_of_each_part_on_each_axis)
{
    UmlParts parts;
    parts.fragments = {fragmentOf({30, 20})};
    parts.fragments[0].row = 7;
    parts.fragments[0].cells.col = 8;
    parts.nodes = {activation(0, {5, 6})};
    for (const UmlEdge::Kind kind : {UmlEdge::LifeLine, UmlEdge::Message, UmlEdge::Return}) {
        parts.edges.append({kind, {3, 4}});
        parts.edges.last().label = label;
    }
    const UmlExtents extents = extentsOf(parts);
    const auto listed = [](const QList<GridClaim> &claims) {
        QList<QList<int>> rows;
        for (const GridClaim &claim : claims)
            rows.append({claim.index, claim.offset, claim.size, int(claim.spans)});
        return rows;
    };
    // A fragment, an activation, a lifeline, a message and a return.
    EXPECT_EQ(listed(columnClaims(parts, extents)),
              (QList<QList<int>>{
                  {8, -38, 30, 1}, {6, -5, 10, 0}, {4, -20, 40, 0}, {4, 5, 40, 1}, {4, 5, 40, 1}}));
    EXPECT_EQ(
        listed(rowClaims(parts, extents)),
        (QList<QList<int>>{
            {7, -20, 20, 0}, {5, 0, 10, 0}, {3, -10, 20, 0}, {3, -20, 20, 0}, {3, -17, 20, 0}}));
}
