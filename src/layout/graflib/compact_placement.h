#pragma once

#include "layout/graflib/stored_number.h"
#include "layout/graflib/tree_nodes.h"

#include <QtGlobal>

#include <vector>

namespace ORR::Graph::Layout {

// The compact placement of a tree across its levels: a walk from the root that lays out every
// subtree before its parent and centres the parent over its children. How far each level is taken
// keeps the subtrees apart, and a parent that would run into what stands before it is pushed on,
// its whole subtree with it.
//
// A node that is reached on several ways is placed on each of them; the last one holds, and the
// levels stay taken by all of them. So the work grows with the number of ways and not with that of
// nodes, and it is limited, see `place`. All positions have the six digits that they have as
// attributes.
class CompactPlacement
{
public:
    struct Options
    {
        double nodeSep = 0.0; // points
        double start = 0.0; // where the levels begin, in points
    };

    // extents: the size of each node across the levels. What is reached must live as long.
    CompactPlacement(const ReachedNodes &reached, std::vector<double> extents, TreeLevels levels,
                     const Options &options);

    // Places all nodes. False, with nothing placed or a part of it, if that takes too many
    // placements or too many moves of pushed nodes.
    bool place();

    // Results: the positions, and the largest end on any level.
    const std::vector<double> &placed() const { return position; }
    double end() const { return levelEnd.back(); }

private:
    struct Visit;
    // What the last move of some neighbouring nodes of a tree left, so that a move that changes
    // nothing need not go through them.
    struct Block
    {
        bool isUniform = false; // all of them stand at one position
        double position = 0.0; // if so: that one
        double taken =
            0.0; // the place that it is the digits of: all levels are taken from there on
    };

    void placeSubtree(int root);
    double freePosition(int node, double start, bool first) const;
    double settle(int node, double y);
    double centre(const Visit &visit);
    void shiftChildren(int node, double delta);
    void shiftSubtree(int root, double delta);
    void shiftTree(int first, int behind, double delta);
    void shiftBlock(int first, double delta);
    double shiftRange(int first, int behind, double delta);
    void countPlacements();

    const ReachedNodes &reached;
    std::vector<double> extents;
    TreeLevels levels;
    Options options;
    std::vector<double> levelEnd; // how far each level is taken; last entry: the furthest of all
    std::vector<double> position;
    std::vector<qint64> placements; // how many each subtree takes, limited
    std::vector<Block> blocks; // of a tree
    std::vector<int> pending; // of `shiftSubtree`
    StoredNumber stored;
    qint64 mostMoves;
    qint64 moves = 0;
};

} // namespace ORR::Graph::Layout
