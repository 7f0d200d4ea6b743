#include "layout/graflib/graflib_tree.h"

#include "graflib_support.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// Nodes without a label and without a shape: 40 wide and 20 high. Gaps of 18 and 36 points.
GraflibDrawing compact(const QByteArray &body, const QByteArray &rankdir = "LR",
                       const QByteArray &more = "")
{
    return runTree("digraph {\ngraph [crossing=false nodesep=0.25 ranksep=0.5 pad=0.125 rankdir="
                   + rankdir + " " + more
                   + "]\nnode [margin=\"0.277777777777777,0.138888888888888\"]\n" + body + "}");
}

QString place(const GraflibDrawing &laid, const QString &id)
{
    return laid.ofNode(id, u"d1"_s) + u' ' + laid.ofNode(id, u"d2"_s);
}

const QString tooManyPaths = u"Graph has too many paths for a compact tree layout\n"_s;

QByteArray ladder(int diamonds)
{
    QByteArray dot;
    for (int i = 0; i < diamonds; ++i) {
        const QByteArray top = QByteArray::number(i);
        const QByteArray bottom = QByteArray::number(i + 1);
        for (const char *side : {"l", "r"})
            dot += top + " -> " + side + top + " [] " + side + top + " -> " + bottom + " []\n";
    }
    return dot;
}

} // namespace

TEST(CompactTree, a_chain_stands_at_the_pad)
{
    const GraflibDrawing laid = compact("a -> b [] b -> c []");
    EXPECT_EQ(place(laid, u"a"_s), u"9 9"_s);
    EXPECT_EQ(place(laid, u"b"_s), u"85 9"_s);
    EXPECT_EQ(place(laid, u"c"_s), u"161 9"_s);
    EXPECT_EQ(laid.beginCall(), u"begin 210 38"_s);
}

TEST(CompactTree, a_parent_stands_centred_over_its_children)
{
    const GraflibDrawing laid = compact("a -> b [] a -> c []");
    EXPECT_EQ(place(laid, u"b"_s), u"85 9"_s);
    EXPECT_EQ(place(laid, u"c"_s), u"85 47"_s);
    EXPECT_EQ(place(laid, u"a"_s), u"9 28"_s);
    EXPECT_EQ(laid.beginCall(), u"begin 134 76"_s);
}

TEST(CompactTree, the_child_declared_first_stands_nearest_the_start)
{
    const GraflibDrawing laid = compact("a -> c [] a -> b [] a -> d []");
    EXPECT_LT(laid.number(u"c"_s, u"d2"_s), laid.number(u"b"_s, u"d2"_s));
    EXPECT_LT(laid.number(u"b"_s, u"d2"_s), laid.number(u"d"_s, u"d2"_s));
}

TEST(CompactTree, sorted_children_ascend_from_the_start)
{
    const GraflibDrawing laid = compact(
        "b [label=b] c [label=C] d [label=A] a -> c [] a -> b [] a -> d []", "LR", "sort=true");
    EXPECT_LT(laid.number(u"d"_s, u"d2"_s), laid.number(u"b"_s, u"d2"_s));
    EXPECT_LT(laid.number(u"b"_s, u"d2"_s), laid.number(u"c"_s, u"d2"_s));
}

// The second parent's child stands two gaps behind the first one's.
TEST(CompactTree, subtrees_of_different_parents_stand_two_gaps_apart)
{
    const GraflibDrawing laid = compact("a -> b [] a -> c [] b -> d [] c -> e []");
    EXPECT_EQ(laid.number(u"d"_s, u"d2"_s), 9.0);
    EXPECT_EQ(laid.number(u"e"_s, u"d2"_s), 9.0 + 20 + 36);
}

// b and c are leaves at 9 and 47; d may begin at 85, where its only child f, the first on its
// level, stands as well.
TEST(CompactTree, children_begin_where_their_parent_may)
{
    const GraflibDrawing laid = compact("a -> b [] a -> c [] a -> d [] d -> f []");
    EXPECT_EQ(laid.number(u"f"_s, u"d2"_s), 85.0);
    EXPECT_EQ(laid.number(u"d"_s, u"d2"_s), 85.0);
}

// Centred over its only child, the tall b would begin before the start.
TEST(CompactTree, a_parent_that_would_run_into_its_neighbour_is_pushed_with_its_subtree)
{
    const GraflibDrawing laid =
        runTree("digraph { graph [crossing=false rankdir=LR] node [margin=\"0.1,0.25\"] "
                "a -> b [] b -> c [] b [label=\"x\\nx\\nx\\nx\"] }");
    const double tall = laid.number(u"b"_s, u"height"_s);
    ASSERT_GT(tall, 36.0);
    EXPECT_EQ(laid.number(u"b"_s, u"d2"_s), 0.0);
    EXPECT_EQ(laid.number(u"c"_s, u"d2"_s), (tall - 36) / 2);
    EXPECT_EQ(laid.number(u"a"_s, u"d2"_s), (tall - 36) / 2);
}

// The place that is free for it is cut to whole points.
TEST(CompactTree, a_pushed_parent_may_stand_a_fraction_too_near)
{
    const GraflibDrawing laid =
        runTree("digraph { graph [crossing=false rankdir=LR pad=0.02] node "
                "[margin=\"0.1,0.25\"] a -> b [] a [label=\"x\\nx\\nx\\nx\"] }");
    EXPECT_EQ(laid.number(u"a"_s, u"d2"_s), 1.0); // and not 1.44
}

// d is placed under b and then under c; what counts is the second time. Its level is its deepest.
TEST(CompactTree, a_node_with_two_parents_is_placed_for_each_and_the_last_one_holds)
{
    const GraflibDrawing laid = compact("a -> b [] a -> c [] b -> d [] c -> d []");
    EXPECT_EQ(laid.number(u"b"_s, u"d2"_s), 9.0);
    EXPECT_EQ(laid.number(u"d"_s, u"d2"_s), 9.0 + 20 + 36);
    EXPECT_EQ(laid.ofNode(u"d"_s, u"level"_s), u"2"_s);
}

TEST(CompactTree, two_edges_between_the_same_nodes_are_two_children)
{
    const GraflibDrawing laid = compact("a -> b [] a -> b []");
    EXPECT_EQ(laid.number(u"b"_s, u"d2"_s), 9.0 + 20 + 18);
    EXPECT_EQ(laid.number(u"a"_s, u"d2"_s), 28.0);
}

TEST(CompactTree, what_is_not_reached_is_not_placed)
{
    const GraflibDrawing laid = compact("a -> b [] c -> d [] d -> c []");
    EXPECT_EQ(laid.result, QString());
    EXPECT_TRUE(laid.ofNode(u"c"_s, u"d1"_s).isNull());
}

TEST(CompactTree, flipped_levels_are_measured_back_from_the_end)
{
    const QByteArray body = "a -> b [] a -> c []";
    const GraflibDrawing laid = compact(body, "RL");
    EXPECT_EQ(place(laid, u"a"_s), u"85 28"_s);
    EXPECT_EQ(place(laid, u"b"_s), u"9 9"_s);
    EXPECT_EQ(laid.beginCall(), compact(body, "LR").beginCall());
    EXPECT_EQ(compact(body, "BT").beginCall(), compact(body, "TB").beginCall());
}

TEST(CompactTree, an_expander_widens_its_level)
{
    EXPECT_EQ(compact("a -> b []").beginCall(), u"begin 134 38"_s);
    EXPECT_EQ(compact("a [expander=true] a -> b []").beginCall(), u"begin 143 38"_s);
}

TEST(CompactTree, children_stand_apart_and_behind_their_parents)
{
    RandomNumbers random(21);
    QByteArray body;
    for (int i = 1; i < 300; ++i)
        body +=
            "n" + QByteArray::number(random.below(i)) + " -> n" + QByteArray::number(i) + " []\n";
    const GraflibDrawing laid = compact(body);
    ASSERT_EQ(laid.result, QString());
    QMap<int, QList<double>> levels;
    for (const DotNode *node : std::as_const(laid.graph->root()->nodes)) {
        levels[laid.ofNode(node->id, u"level"_s).toInt()].append(laid.number(node->id, u"d2"_s));
        for (const DotNode *child : laid.graph->successors(node))
            EXPECT_GE(laid.number(child->id, u"d1"_s), laid.number(node->id, u"d1"_s) + 40 + 36);
    }
    for (QList<double> &level : levels) {
        std::sort(level.begin(), level.end());
        for (int i = 1; i < level.size(); ++i)
            EXPECT_GE(level[i] - level[i - 1], 20 + 18 - 1.001); // a pushed one: a point nearer
    }
}

TEST(CompactTreeLimits, a_ladder_of_few_diamonds_is_placed)
{
    EXPECT_EQ(compact(ladder(12)).result, QString());
}

TEST(CompactTreeLimits, a_ladder_of_64_diamonds_is_refused)
{
    const GraflibDrawing laid = compact(ladder(64));
    EXPECT_EQ(laid.result, tooManyPaths);
    EXPECT_TRUE(laid.device->calls().isEmpty());
}

TEST(CompactTreeLimits, a_ladder_of_64_diamonds_has_its_levels)
{
    const GraflibDrawing laid = runTree("digraph {" + ladder(64) + "}");
    EXPECT_EQ(laid.result, QString());
    EXPECT_EQ(laid.ofNode(u"64"_s, u"level"_s), u"128"_s);
}

TEST(CompactTreeLimits, chains_of_100000_nodes_are_placed)
{
    QByteArray chain;
    for (int i = 0; i < 99'999; ++i)
        chain += QByteArray::number(i) + " -> " + QByteArray::number(i + 1) + " []\n";
    for (const char *crossing : {"true", "false"}) {
        const auto graph = parsed("digraph { graph [pad=0.125 crossing=" + QByteArray(crossing)
                                  + "] " + chain + "}");
        SilentDevice device;
        EXPECT_EQ(Layout::GraflibTree::run({graph.get(), &device}), QString());
        const DotNode *last = graph->findNode(u"99999"_s);
        EXPECT_EQ(graph->nodeAttribute(last, u"level"_s), u"99999"_s);
        EXPECT_EQ(graph->nodeAttribute(last, u"d2"_s), u"9"_s);
    }
}

// Every parent is pushed by two points, which are lost again in six digits. That moves all nodes
// below it, 5,000,050,000 together.
TEST(CompactTreeLimits, a_chain_in_which_every_parent_is_pushed_is_placed)
{
    QByteArray chain;
    for (int i = 0; i < 100'000; ++i)
        chain += QByteArray::number(i) + " -> " + QByteArray::number(i + 1) + " []\n";
    const auto graph = parsed("digraph { graph [pad=17146.17 crossing=false] " + chain + "}");
    SilentDevice device;
    EXPECT_EQ(Layout::GraflibTree::run({graph.get(), &device}), QString());
    EXPECT_EQ(graph->nodeAttribute(graph->findNode(u"100000"_s), u"d2"_s), u"1.23452e+06"_s);
}

TEST(CompactTreeLimits, numbers_beyond_all_measure_end_in_a_drawing)
{
    for (const char *size : {"1e308", "-1e308", "nan", "inf", "1e300"}) {
        for (const char *crossing : {"true", "false"}) {
            const QByteArray value = size;
            const GraflibDrawing laid =
                runTree("digraph { graph [nodesep=\"" + value + "\" ranksep=\"" + value
                        + "\" pad=\"" + value + "\" crossing=" + crossing
                        + "] node [shape=hexagon peripheries=2 margin=\"" + value
                        + "\"] edge [headsegment=\"" + value + "\" tailsegment=\"" + value
                        + "\" arrowhead=normal] a -> b [] a -> c [] b -> d [] c -> e [] }");
            EXPECT_EQ(laid.result, QString()) << size;
            EXPECT_EQ(laid.device->callsOf(u"polygon"_s).size(), 5 * 2 + 4) << size;
        }
    }
}
