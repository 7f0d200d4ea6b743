// The parts of the tree's layout that know no graph: nodes as numbers, levels, columns, edges.

#include "layout/graflib/tree_columns.h"
#include "layout/graflib/tree_edges.h"
#include "layout/graflib/tree_nodes.h"

#include <gtest/gtest.h>

using namespace ORR::Graph::Layout;

namespace {

using Numbers = std::vector<int>;

Successors graphOf(const std::vector<Numbers> &heads)
{
    Successors successors;
    for (const Numbers &ofNode : heads) {
        successors.children.insert(successors.children.end(), ofNode.begin(), ofNode.end());
        successors.firstChild.push_back(static_cast<int>(successors.children.size()));
    }
    return successors;
}

bool operator==(const AxisPair &a, const AxisPair &b)
{
    return a.along == b.along && a.across == b.across;
}

constexpr FourNumbers four(double a, double b, double c, double d)
{
    return {a, b, c, d};
}

// Two nodes of 10 by 4 on the first level and one of 20 by 6 on the second.
const std::vector<TreeNode> threeNodes{
    {0, {10, 4}, 10}, {1, {20, 6}, 29}, {0, {10, 4}, 10}, {-1, {99, 99}, 99}};
const Numbers inOrder{0, 1, 2};

} // namespace

TEST(TreeNodes, the_root_is_the_only_node_that_is_no_head)
{
    EXPECT_EQ(rootOf(graphOf({{2}, {0, 2}, {}})), 1);
    EXPECT_FALSE(rootOf(graphOf({{2}, {2}, {}})));
    EXPECT_FALSE(rootOf(graphOf({{1}, {0}})));
    EXPECT_FALSE(rootOf(graphOf({})));
}

TEST(TreeNodes, are_numbered_as_a_depth_first_walk_meets_them)
{
    const ReachedNodes reached = reachedFrom(3, graphOf({{}, {0}, {}, {2, 1}, {}}));
    EXPECT_TRUE(reached.isTree);
    EXPECT_FALSE(reached.hasCycle);
    EXPECT_EQ(reached.nodes, (Numbers{3, 2, 1, 0}));
    EXPECT_EQ(reached.children, (Numbers{1, 2, 3}));
    EXPECT_EQ(reached.firstChild, (Numbers{0, 2, 2, 3, 3}));
    EXPECT_EQ(reached.subtreeEnd, (Numbers{4, 2, 4, 4}));
    EXPECT_EQ(reached.finished, (Numbers{1, 3, 2, 0}));
}

TEST(TreeNodes, a_shared_child_makes_no_tree_and_no_cycle)
{
    const ReachedNodes reached = reachedFrom(0, graphOf({{1, 2}, {3}, {3}, {}}));
    EXPECT_FALSE(reached.isTree);
    EXPECT_FALSE(reached.hasCycle);
}

TEST(TreeNodes, a_cycle_is_found_where_the_root_reaches_it)
{
    EXPECT_TRUE(reachedFrom(0, graphOf({{1}, {2}, {1}})).hasCycle);
    EXPECT_FALSE(reachedFrom(0, graphOf({{1}, {}, {3}, {2}})).hasCycle);
}

TEST(TreeLevels, a_level_is_the_length_of_the_longest_way)
{
    const TreeLevels levels = levelsOf(reachedFrom(0, graphOf({{2, 1}, {2}, {3}, {}})));
    EXPECT_EQ(levels.count, 4);
    EXPECT_EQ(levels.levels, (Numbers{0, 2, 3, 1})); // 0, 2, 3, 1 as they are met
}

TEST(TreeColumns, extents_are_those_of_what_stands_on_a_level)
{
    EXPECT_EQ(levelExtents(threeNodes, 2), (std::vector<double>{10, 29}));
}

TEST(TreeColumns, starts_end_with_the_length_of_the_page)
{
    EXPECT_EQ(levelStarts({10, 29}, {.rankSep = 5, .pad = {3, 0}}),
              (std::vector<double>{3, 18, 45 + 0 + 5}));
}

TEST(TreeColumns, each_level_is_centred_by_itself)
{
    const TreePlaces places =
        placeColumns(threeNodes, inOrder, 2, {.nodeSep = 2, .rankSep = 5, .pad = {3, 1}});
    EXPECT_EQ(places.page, QSizeF(10 + 29 + 5 + 6, 12 + 2));
    EXPECT_TRUE(places.nodes[0] == (AxisPair{3, 1}));
    EXPECT_TRUE(places.nodes[2] == (AxisPair{3, 7}));
    EXPECT_TRUE(places.nodes[1] == (AxisPair{18, 3}));
}

TEST(TreeColumns, stand_in_the_order_given)
{
    const TreePlaces places = placeColumns(threeNodes, {2, 1, 0}, 2, {.nodeSep = 2, .pad = {}});
    EXPECT_EQ(places.nodes[2].across, 0);
    EXPECT_EQ(places.nodes[0].across, 6);
}

TEST(TreeColumns, flipped_levels_are_measured_from_the_end)
{
    const TreePlaces places =
        placeColumns(threeNodes, inOrder, 2, {.rankSep = 5, .pad = {}, .flipped = true});
    EXPECT_EQ(places.nodes[0].along, 44 - 10);
    EXPECT_EQ(places.nodes[1].along, 44 - 15 - 20);
}

TEST(TreeEdge, runs_from_the_far_side_of_the_tail_to_the_head)
{
    const PlacedNode tail{{0, 10}, {40, 20}};
    const PlacedNode head{{100, 50}, {40, 30}};
    const TreeEdge line = treeEdge(tail, head, {.out = 9, .in = 4}, false);
    EXPECT_EQ(line.along, four(40, 49, 96, 100));
    EXPECT_EQ(line.across, four(20, 20, 65, 65));
    EXPECT_EQ(treeEdge(tail, head, {.out = 9, .in = 4, .straight = true}, false).along,
              four(40, 96, 96, 100));
}

TEST(TreeEdge, runs_the_other_way_where_levels_are_flipped)
{
    const PlacedNode tail{{100, 10}, {40, 20}};
    const PlacedNode head{{0, 50}, {40, 30}};
    EXPECT_EQ(treeEdge(tail, head, {.out = 9, .in = 4}, true).along, four(100, 91, 44, 40));
}
