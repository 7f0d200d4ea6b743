#pragma once

#include <QSizeF>

#include <vector>

namespace ORR::Graph::Layout {

// Lengths along and across the levels of a tree, in points.
struct AxisPair
{
    double along = 0.0;
    double across = 0.0;
};

// What the placements of a tree keep between its nodes and around them, in points.
struct TreeSpacing
{
    double nodeSep = 0.0; // within a level
    double rankSep = 0.0; // between levels
    AxisPair pad; // border of the page
    bool flipped = false; // the levels run against the axis
};

// A node of a tree as its placement sees it.
struct TreeNode
{
    int level; // below 0 for a node that stands on none
    AxisPair size;
    double room; // what it takes of its level along the levels
};

// The places of the nodes, by the near sides along and across the levels, and the size of the page.
struct TreePlaces
{
    std::vector<AxisPair> nodes;
    QSizeF page;
};

// The largest room of any node on each level.
std::vector<double> levelExtents(const std::vector<TreeNode> &nodes, int levelCount);

// Where each level begins, and behind the last one the length of the page.
std::vector<double> levelStarts(const std::vector<double> &extents, const TreeSpacing &spacing);

// Where a node stands along the levels if its level begins at `start`; `total` is the length of the
// page.
double placeAlong(const TreeNode &node, double start, double total, bool flipped);

// Places every level by itself, centred across the drawing, so that edges between levels may cross.
// `order` has the numbers of the nodes that stand on a level: in this order they stand there.
TreePlaces placeColumns(const std::vector<TreeNode> &nodes, const std::vector<int> &order,
                        int levelCount, const TreeSpacing &spacing);

} // namespace ORR::Graph::Layout
