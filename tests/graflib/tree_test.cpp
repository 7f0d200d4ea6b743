#include "layout/graflib/graflib_tree.h"

#include "graflib_support.h"
#include "graph/numbers.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// Nodes without a label and without a shape: as large as their margins, 40 wide and 20 high.
constexpr auto nodes40x20 = "node [margin=\"0.277777777777777,0.138888888888888\"]\n";

GraflibDrawing tree(const QByteArray &rootAttributes, const QByteArray &body)
{
    return runTree("digraph {\ngraph [" + rootAttributes + "]\n" + nodes40x20 + body + "}");
}

QString place(const GraflibDrawing &laid, const QString &id)
{
    return laid.ofNode(id, u"d1"_s) + u' ' + laid.ofNode(id, u"d2"_s);
}

constexpr auto half = "nodesep=0.25 ranksep=0.5"; // 18 and 36 points
constexpr auto halfLR = "rankdir=LR nodesep=0.25 ranksep=0.5";

void expectRefused(const GraflibDrawing &laid, const QString &message)
{
    EXPECT_EQ(laid.result, message);
    EXPECT_TRUE(laid.device->calls().isEmpty());
}

const QString noRoot = u"Could not find root node\n"_s;
const QString cycle = u"Cycle detected. Graflib Tree layout does not support cycles\n"_s;

} // namespace

TEST(TreeChecks, subgraphs_are_refused)
{
    expectRefused(tree("", "a [] subgraph s { }"), u"GraflibTree does not support subgraphs\n"_s);
}

TEST(TreeChecks, a_graph_without_nodes_has_no_root)
{
    expectRefused(tree("", ""), noRoot);
}

TEST(TreeChecks, a_single_node_with_a_loop_has_no_root)
{
    expectRefused(tree("", "a -> a []"), noRoot);
}

TEST(TreeChecks, two_trees_have_no_single_root)
{
    expectRefused(tree("", "a -> b [] c -> d []"), noRoot);
}

TEST(TreeChecks, an_isolated_node_is_a_second_root)
{
    expectRefused(tree("", "a -> b [] c []"), noRoot);
}

TEST(TreeChecks, a_cycle_below_the_root_is_refused)
{
    expectRefused(tree("", "a -> b [] b -> c [] c -> b []"), cycle);
    expectRefused(tree("", "a -> b [] b -> b []"), cycle);
}

TEST(TreeChecks, a_shared_child_is_no_cycle)
{
    EXPECT_EQ(tree("", "a -> b [] a -> c [] b -> d [] c -> d []").result, QString());
}

TEST(TreeChecks, a_cycle_that_the_root_does_not_reach_is_not_found)
{
    const GraflibDrawing laid = tree("rankdir=LR", "a -> b [] c -> d [] d -> c []");
    EXPECT_EQ(laid.result, QString());
    EXPECT_TRUE(laid.ofNode(u"c"_s, u"level"_s).isNull());
    EXPECT_TRUE(laid.ofNode(u"c"_s, u"d1"_s).isNull());
    EXPECT_TRUE(laid.ofNode(u"c"_s, u"d2"_s).isNull());
}

TEST(TreeChecks, what_is_not_reached_is_drawn_at_zero)
{
    const GraflibDrawing laid =
        runTree("digraph { node [margin=0.5 shape=rectangle] a -> b [] c -> d [] "
                "d -> c [] }");
    EXPECT_EQ(laid.device->callsOf(u"rect"_s).filter(u"rect 0,0 72,72"_s).size(), 3); // a, c and d
}

TEST(TreeChecks, the_message_of_the_device_is_the_result)
{
    const auto graph = parsed("digraph { a [] }");
    RecordingDevice device;
    device.setResult(u"Disk full\n"_s);
    EXPECT_EQ(Layout::GraflibTree::run({graph.get(), &device}), u"Disk full\n"_s);
}

TEST(TreeLevels, a_node_with_two_parents_stands_in_its_deepest_level)
{
    const GraflibDrawing laid = tree("", "a -> d [] a -> b [] b -> c [] c -> d [] d -> e []");
    EXPECT_EQ(laid.ofNode(u"d"_s, u"level"_s), u"3"_s);
    EXPECT_EQ(laid.ofNode(u"e"_s, u"level"_s), u"4"_s);
}

TEST(TreeLevels, a_level_of_the_input_is_overwritten_where_the_root_reaches)
{
    const GraflibDrawing laid = tree("", "a [level=2000000000] a -> b []");
    EXPECT_EQ(laid.result, QString());
    EXPECT_EQ(laid.ofNode(u"a"_s, u"level"_s), u"0"_s);
}

TEST(TreeLevels, a_level_within_the_tree_places_a_node_that_is_not_reached)
{
    const QByteArray graph = "a -> b [] c -> d [] d -> c [] c [level=1]";
    EXPECT_EQ(place(tree(halfLR, graph), u"c"_s), u"76 38"_s);
    EXPECT_EQ(place(tree("crossing=false rankdir=LR", graph), u"c"_s), u" "_s);
}

TEST(TreeLevels, a_level_outside_of_the_tree_is_refused)
{
    for (const char *level : {"2", "-1", "2147483647", "-2147483648"}) {
        for (const char *crossing : {"true", "false"}) {
            expectRefused(
                tree("crossing=" + QByteArray(crossing),
                     "a -> b [] c -> d [] d -> c [] c [level=\"" + QByteArray(level) + "\"]"),
                u"A node has a level that is not in the tree\n"_s);
        }
    }
}

TEST(TreeLevels, a_level_that_is_no_number_is_none)
{
    for (const char *level : {"99999999999", "1.0", "x", ""}) {
        const GraflibDrawing laid =
            tree("", "a -> b [] c -> d [] d -> c [] c [level=\"" + QByteArray(level) + "\"]");
        EXPECT_EQ(laid.result, QString()) << level;
        EXPECT_TRUE(laid.ofNode(u"c"_s, u"d1"_s).isNull()) << level;
    }
}

TEST(TreeColumns, a_single_node_is_its_extents_and_twice_the_pad)
{
    const GraflibDrawing laid = tree("pad=0.5 rankdir=LR", "a []");
    EXPECT_EQ(laid.beginCall(), u"begin 112 92"_s);
    EXPECT_EQ(place(laid, u"a"_s), u"36 36"_s);
}

TEST(TreeColumns, without_any_attribute_nodes_touch)
{
    const GraflibDrawing laid = tree("rankdir=LR", "a -> b [] a -> c []");
    EXPECT_EQ(place(laid, u"a"_s), u"0 10"_s);
    EXPECT_EQ(place(laid, u"b"_s), u"40 0"_s);
    EXPECT_EQ(place(laid, u"c"_s), u"40 20"_s);
    EXPECT_EQ(laid.beginCall(), u"begin 80 40"_s);
}

// A level is as long as its nodes with a gap behind each: 40 for two nodes and 36 for their gaps.
TEST(TreeColumns, every_level_is_centred_by_itself)
{
    const GraflibDrawing laid = tree(halfLR, "a -> b [] a -> c []");
    EXPECT_EQ(place(laid, u"a"_s), u"0 19"_s);
    EXPECT_EQ(place(laid, u"b"_s), u"76 0"_s);
    EXPECT_EQ(place(laid, u"c"_s), u"76 38"_s);
    EXPECT_EQ(laid.beginCall(), u"begin 116 76"_s);
}

TEST(TreeColumns, a_level_keeps_the_order_of_the_nodes)
{
    const GraflibDrawing laid = tree(half, "a [] c [] b [] a -> b [] a -> c []");
    EXPECT_LT(laid.number(u"c"_s, u"d2"_s), laid.number(u"b"_s, u"d2"_s));
}

TEST(TreeColumns, sort_orders_every_level_by_label_without_regard_to_case)
{
    const GraflibDrawing laid =
        runTree("digraph { graph [sort=true rankdir=LR] node [label=zz] r -> x [] r -> y [] "
                "r -> z [] r -> w [] x [label=b] y [label=C] z [label=A] w [] }");
    EXPECT_LT(laid.number(u"w"_s, u"d2"_s), laid.number(u"z"_s, u"d2"_s)); // no label of its own
    EXPECT_LT(laid.number(u"z"_s, u"d2"_s), laid.number(u"x"_s, u"d2"_s));
    EXPECT_LT(laid.number(u"x"_s, u"d2"_s), laid.number(u"y"_s, u"d2"_s));
}

TEST(TreeColumns, bottom_to_top_and_right_to_left_turn_the_levels_only)
{
    const QByteArray body = "a -> b [] a -> c []";
    const GraflibDrawing forward = tree(halfLR, body);
    const GraflibDrawing back = tree("rankdir=RL nodesep=0.25 ranksep=0.5", body);
    EXPECT_EQ(place(back, u"a"_s), u"76 19"_s);
    EXPECT_EQ(place(back, u"b"_s), u"0 0"_s);
    EXPECT_EQ(back.beginCall(), forward.beginCall());

    const GraflibDrawing up = tree(QByteArray("rankdir=BT ") + half, body);
    EXPECT_EQ(place(up, u"a"_s), u"56 29"_s); // two levels of 20 and 36 between; 116 across
    EXPECT_EQ(place(up, u"c"_s), u"0 58"_s);
    EXPECT_EQ(up.beginCall(), u"begin 116 76"_s);
}

TEST(TreeColumns, a_node_of_width_zero_has_no_gap_in_the_sum_but_moves_the_next_one)
{
    const GraflibDrawing laid =
        runTree("digraph { graph [nodesep=0.25] a -> b [] a -> c [] b [] c [label=c] }");
    const double width = laid.number(u"c"_s, u"width"_s);
    EXPECT_EQ(laid.number(u"b"_s, u"width"_s), 0.0);
    EXPECT_EQ(laid.beginCall().section(u' ', 1, 1).toInt(), rounded(width + 18));
    EXPECT_EQ(laid.number(u"b"_s, u"d2"_s), 0.0);
    EXPECT_EQ(laid.number(u"c"_s, u"d2"_s), 18.0);
}

TEST(TreeColumns, an_expander_widens_its_level_on_any_device)
{
    EXPECT_EQ(tree(halfLR, "a -> b [] b -> c []").beginCall(), u"begin 192 38"_s);
    EXPECT_EQ(tree(halfLR, "b [expander=true] a -> b [] b -> c []").beginCall(), u"begin 201 38"_s);
    EXPECT_EQ(tree(halfLR, "b [expander=yes] a -> b [] b -> c []").beginCall(), u"begin 192 38"_s);
}

TEST(TreeColumns, pad_is_x_and_y_of_the_page_under_every_direction)
{
    for (const char *rankdir : {"LR", "RL", "TB", "BT"}) {
        const GraflibDrawing laid = tree("pad=\"1,0.5\" rankdir=" + QByteArray(rankdir), "a []");
        EXPECT_EQ(laid.beginCall(), u"begin 184 92"_s) << rankdir;
    }
}

TEST(TreeColumns, margin_is_x_and_y_of_the_page_under_every_direction)
{
    for (const char *rankdir : {"LR", "RL", "TB", "BT"}) {
        const GraflibDrawing laid = runTree("digraph { graph [rankdir=" + QByteArray(rankdir)
                                            + "] node [margin=\"0.1,0.2\"] a [] }");
        EXPECT_EQ(laid.ofNode(u"a"_s, u"width"_s), u"14.4"_s) << rankdir;
        EXPECT_EQ(laid.ofNode(u"a"_s, u"height"_s), u"28.8"_s) << rankdir;
    }
}

// The room for an expander, 9 points at the font size of 12, is kept free at every tail.
TEST(TreeEdges, level_placement_bends_behind_the_room_for_an_expander)
{
    const GraflibDrawing laid = tree(halfLR, "a -> b []");
    EXPECT_EQ(laid.ofEdge(u"a"_s, u"b"_s, u"d1"_s), u"40 49 76 76"_s);
    EXPECT_EQ(laid.ofEdge(u"a"_s, u"b"_s, u"d2"_s), u"10 10 10 10"_s);
}

TEST(TreeEdges, level_placement_does_not_read_the_segments)
{
    const GraflibDrawing laid =
        tree(QByteArray(halfLR) + "] edge [headsegment=0.125 tailsegment=0.25", "a -> b []");
    EXPECT_EQ(laid.ofEdge(u"a"_s, u"b"_s, u"d1"_s), u"40 49 76 76"_s);
}

TEST(TreeEdges, compact_placement_has_the_head_segment_at_the_tail_and_the_tail_segment_at_the_head)
{
    const GraflibDrawing laid =
        tree(QByteArray(halfLR) + " crossing=false] edge [headsegment=0.125 tailsegment=0.25",
             "a -> b []");
    EXPECT_EQ(laid.ofEdge(u"a"_s, u"b"_s, u"d1"_s), u"40 58 58 76"_s);
    EXPECT_EQ(laid.ofEdge(u"a"_s, u"b"_s, u"d2"_s), u"10 10 10 10"_s);
}

TEST(TreeEdges, segments_that_leave_no_room_put_both_bends_where_the_last_run_begins)
{
    const GraflibDrawing laid =
        tree(QByteArray(halfLR) + " crossing=false] edge [headsegment=0.25 tailsegment=0.25",
             "a -> b []");
    EXPECT_EQ(laid.ofEdge(u"a"_s, u"b"_s, u"d1"_s), u"40 58 58 76"_s);
    const GraflibDrawing longer =
        tree(QByteArray(halfLR) + " crossing=false] edge [headsegment=0.5 tailsegment=0.125",
             "a -> b []");
    EXPECT_EQ(longer.ofEdge(u"a"_s, u"b"_s, u"d1"_s), u"40 67 67 76"_s);
}

TEST(TreeEdges, flipped_ones_run_the_other_way)
{
    const GraflibDrawing laid =
        tree("rankdir=RL nodesep=0.25 ranksep=0.5 crossing=false] edge [headsegment=0.125 "
             "tailsegment=0.125",
             "a -> b []");
    EXPECT_EQ(laid.ofEdge(u"a"_s, u"b"_s, u"d1"_s), u"76 58 49 40"_s);
}

TEST(TreeEdges, of_nodes_that_are_not_reached_start_at_zero)
{
    const GraflibDrawing laid = tree(halfLR, "a -> b [] c -> d [] d -> c []");
    EXPECT_EQ(laid.ofEdge(u"c"_s, u"d"_s, u"d1"_s), u"40 49 0 0"_s);
    EXPECT_EQ(laid.ofEdge(u"c"_s, u"d"_s, u"d2"_s), u"10 10 10 10"_s);
}

TEST(TreeSort, descending_puts_the_larger_key_first_and_keeps_equal_ones)
{
    const std::vector<QString> keys{u"b"_s, u"C"_s, u"B"_s, {}};
    std::vector<int> numbers{0, 1, 2, 3};
    Layout::sortByKey(numbers.begin(), numbers.end(), keys, false);
    EXPECT_EQ(numbers, (std::vector<int>{1, 0, 2, 3}));
    Layout::sortByKey(numbers.begin(), numbers.end(), keys, true);
    EXPECT_EQ(numbers, (std::vector<int>{3, 0, 2, 1}));
}
