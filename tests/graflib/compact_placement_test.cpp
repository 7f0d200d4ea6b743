// The compact placement against its plain form, on trees deep enough for blocks of nodes.

#include "layout/graflib/compact_placement.h"

#include "graflib_support.h"
#include "graph/attribute_values.h"
#include "graph/numbers.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;

namespace {

double kept(double value)
{
    return numberFrom(numberText(value));
}

// Every pushed subtree moves node by node, every number goes through its text.
struct PlainPlacement
{
    const ReachedNodes &reached;
    const std::vector<double> &extents;
    const TreeLevels &levels;
    CompactPlacement::Options options;
    std::vector<double> ends = std::vector<double>(levels.count + 1, 0.0);
    std::vector<double> positions = std::vector<double>(reached.size(), 0.0);

    double settle(int node, double y)
    {
        positions[node] = kept(y);
        const double end = y + extents[node];
        double &level = ends[levels.levels[node]];
        level = std::max(level, end);
        ends.back() = std::max(ends.back(), end);
        return end;
    }

    double place(int node, double start, bool first)
    {
        const double taken = ends[levels.levels[node]];
        const double y = taken == 0.0 ? options.start : taken + options.nodeSep * (first ? 2 : 1);
        const double free = std::max(start, y);
        double next = start;
        double end = 0.0;
        double firstY = 0.0;
        const int begin = reached.firstChild[node];
        const int last = reached.firstChild[node + 1] - 1;
        for (int i = last; i >= begin; --i) {
            end = place(reached.children[i], next, i == last);
            next = end + options.nodeSep;
            if (i == last)
                firstY = positions[reached.children[i]];
        }
        if (last < begin)
            return settle(node, free);
        const double centre = (end - firstY - extents[node]) * 0.5 + firstY;
        const double floor = truncated(free);
        if (!(floor > centre))
            return settle(node, centre);
        for (int below = node + 1; below < reached.subtreeEnd[node]; ++below)
            settle(below, positions[below] + (floor - centre));
        return settle(node, floor);
    }
};

// A chain with leaves beside some of its nodes, and now and then a second chain.
Successors deepTree(RandomNumbers &random, int size)
{
    std::vector<std::vector<int>> children(size);
    int end = 0; // of the chain
    for (int node = 1; node < size; ++node) {
        const bool isLeaf = random.oneIn(6);
        const int parent = random.oneIn(100) ? random.below(node) : end;
        children[parent].push_back(node);
        if (random.oneIn(2))
            std::reverse(children[parent].begin(), children[parent].end());
        if (!isLeaf)
            end = node;
    }
    Successors successors;
    for (const auto &ofNode : children) {
        successors.children.insert(successors.children.end(), ofNode.begin(), ofNode.end());
        successors.firstChild.push_back(static_cast<int>(successors.children.size()));
    }
    return successors;
}

} // namespace

TEST(CompactPlacement, is_the_plain_one_in_deep_trees)
{
    static constexpr double starts[] = {0.0, 1.44, 99'990.7, 999'980.3, 1'234'524.24, 8e7};
    RandomNumbers random(31);
    for (int round = 0; round < 24; ++round) {
        const ReachedNodes reached = reachedFrom(0, deepTree(random, 1'500));
        ASSERT_TRUE(reached.isTree);
        const TreeLevels levels = levelsOf(reached);
        std::vector<double> extents;
        // Few sizes, so that many nodes stand at one position, or one for all of them.
        const int sizes = round % 4 == 0 ? 1 : 3;
        for (int i = 0; i < reached.size(); ++i)
            extents.push_back(14.5 + 15 * random.below(sizes));
        const CompactPlacement::Options options{.nodeSep = random.below(3) * 3.6,
                                                .start = starts[round % 6]};

        CompactPlacement placement(reached, extents, levels, options);
        ASSERT_TRUE(placement.place());
        PlainPlacement plain{reached, extents, levels, options};
        plain.place(0, options.start, false);
        ASSERT_EQ(placement.placed(), plain.positions) << round;
        ASSERT_EQ(placement.end(), plain.ends.back()) << round;
    }
}

// Two long chains below one root. In the upper part of the first every parent is larger than its
// child, so that each of them pushes all that is below it, and the lower part moves as one; the
// second chain then stands behind the ends that all those moves left. Far out they move by less
// than a digit: with a growth of 5 by what takes the levels a little further nevertheless, enough
// for the digits of the second chain.
TEST(CompactPlacement, is_the_plain_one_where_blocks_move)
{
    constexpr int upper = 60;
    constexpr int length = 600;
    Successors chains;
    chains.children = {length + 1, 1};
    chains.firstChild.push_back(2);
    for (int node = 1; node <= 2 * length; ++node) {
        if (node % length != 0)
            chains.children.push_back(node + 1);
        chains.firstChild.push_back(static_cast<int>(chains.children.size()));
    }
    const ReachedNodes reached = reachedFrom(0, chains);
    const TreeLevels levels = levelsOf(reached);
    for (const double growth : {0.7, 5.0, 9.9}) {
        for (const double start : {1.44, 999'980.3, 1'234'524.24}) {
            std::vector<double> extents;
            for (const int node : reached.nodes)
                extents.push_back(10.0 + std::max(0, upper - node) * growth);
            const CompactPlacement::Options options{.nodeSep = 5.4, .start = start};
            CompactPlacement placement(reached, extents, levels, options);
            ASSERT_TRUE(placement.place());
            PlainPlacement plain{reached, extents, levels, options};
            plain.place(0, options.start, false);
            ASSERT_EQ(placement.placed(), plain.positions) << start << ' ' << growth;
            ASSERT_EQ(placement.end(), plain.ends.back()) << start << ' ' << growth;
        }
    }
}
