#include "layout/graflib/tree_columns.h"

#include <algorithm>

namespace ORR::Graph::Layout {

namespace {

// The lengths of the levels across, with a gap behind each node.
std::vector<double> levelLengths(const std::vector<TreeNode> &nodes, int levelCount, double nodeSep)
{
    std::vector<double> lengths(levelCount, 0.0);
    for (const TreeNode &node : nodes) {
        // A node of size 0 counts without a gap, although placing it leaves one.
        if (node.level >= 0 && node.size.across != 0.0)
            lengths[node.level] += node.size.across + nodeSep;
    }
    return lengths;
}

} // namespace

std::vector<double> levelExtents(const std::vector<TreeNode> &nodes, int levelCount)
{
    std::vector<double> extents(levelCount, 0.0);
    for (const TreeNode &node : nodes) {
        if (node.level >= 0)
            extents[node.level] = std::max(extents[node.level], node.room);
    }
    return extents;
}

std::vector<double> levelStarts(const std::vector<double> &extents, const TreeSpacing &spacing)
{
    std::vector<double> starts;
    starts.reserve(extents.size() + 1);
    double start = spacing.pad.along;
    for (const double extent : extents) {
        starts.push_back(start);
        start += spacing.rankSep + extent;
    }
    starts.push_back(start - spacing.rankSep + spacing.pad.along);
    return starts;
}

double placeAlong(const TreeNode &node, double start, double total, bool flipped)
{
    return flipped ? total - start - node.size.along : start;
}

TreePlaces placeColumns(const std::vector<TreeNode> &nodes, const std::vector<int> &order,
                        int levelCount, const TreeSpacing &spacing)
{
    const std::vector<double> extents = levelExtents(nodes, levelCount);
    const std::vector<double> lengths = levelLengths(nodes, levelCount, spacing.nodeSep);
    double along = 0.0;
    double longest = 0.0;
    for (int i = 0; i < levelCount; ++i) {
        along += extents[i];
        longest = std::max(longest, lengths[i]);
    }
    along = along + (levelCount - 1) * spacing.rankSep + 2 * spacing.pad.along;
    const double across = longest + 2 * spacing.pad.across;

    std::vector<AxisPair> next(levelCount); // where the next node of each level stands
    double start = spacing.pad.along;
    for (int i = 0; i < levelCount; ++i) {
        next[i] = {start, (across - lengths[i]) * 0.5};
        start += spacing.rankSep + extents[i];
    }
    TreePlaces places{std::vector<AxisPair>(nodes.size()), {along, across}};
    for (const int number : order) {
        const TreeNode &node = nodes[number];
        AxisPair &at = next[node.level];
        places.nodes[number] = {placeAlong(node, at.along, along, spacing.flipped), at.across};
        at.across += node.size.across + spacing.nodeSep;
    }
    return places;
}

} // namespace ORR::Graph::Layout
