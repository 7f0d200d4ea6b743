#include "companion/produce/level_order.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace ORR::Companion;

TEST(Levelled, has_one_root_for_a_circle_that_nothing_leads_to)
{
    const LevelledGraph graph = levelled(3, {{0, 1}, {1, 0}, {1, 2}});
    EXPECT_EQ(graph.roots, (QList<int>{0}));
    ASSERT_EQ(graph.cut.size(), 1);
    EXPECT_EQ(graph.cut[0].tail, 1);
    EXPECT_EQ(graph.cut[0].head, 0);
    EXPECT_EQ(graph.edges.size(), 2);
}

TEST(Levelled, knows_edges_that_a_longer_way_implies)
{
    const LevelledGraph graph = levelled(3, {{0, 1}, {1, 2}, {0, 2}});
    const auto implied = std::count_if(graph.edges.cbegin(), graph.edges.cend(),
                                       [](const auto &edge) { return edge.isImplied; });
    EXPECT_EQ(implied, 1);
}

TEST(Levelled, orders_a_level_by_its_parents)
{
    // 0 and 1 are roots; 2 is a child of 1, 3 of 0: crossing-free is 3 ahead of 2.
    EXPECT_EQ(levelled(4, {{0, 3}, {1, 2}}).order, (QList<int>{0, 1, 3, 2}));
}

TEST(Levelled, keeps_every_vertex)
{
    EXPECT_EQ(levelled(5, {}).order.size(), 5);
    EXPECT_EQ(levelled(5, {}).roots.size(), 5);
}
