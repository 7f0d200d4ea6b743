#include "layout/graflib/compact_placement.h"

#include "graph/limits.h"
#include "graph/numbers.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace ORR::Graph::Layout {

namespace {

constexpr int blockSize = 256; // nodes

} // namespace

// A subtree that is being placed. Its children are taken from the last to the first.
struct CompactPlacement::Visit
{
    int node;
    int childrenLeft;
    double start; // where its children may begin
    double free; // where the node itself may stand
    double next; // where the next child may begin
    double end = 0.0; // of the last child placed
    double firstY = 0.0; // of the first one
    bool firstPlaced = true; // the child that comes next is the first one
};

CompactPlacement::CompactPlacement(const ReachedNodes &reachedNodes,
                                   std::vector<double> nodeExtents, TreeLevels nodeLevels,
                                   const Options &placementOptions)
    : reached(reachedNodes), extents(std::move(nodeExtents)), levels(std::move(nodeLevels)),
      options(placementOptions), levelEnd(levels.count + 1, 0.0), position(reached.size(), 0.0),
      blocks(reached.size() / blockSize + 1),
      mostMoves(reached.isTree ? Limits::mostMovesInTree : Limits::mostMovesInGraph)
{
}

void CompactPlacement::countPlacements()
{
    placements.assign(reached.size(), 1);
    for (const int node : reached.finished) {
        qint64 &count = placements[node];
        for (int i = reached.firstChild[node]; i < reached.firstChild[node + 1]; ++i)
            count = std::min(count + placements[reached.children[i]], Limits::mostPlacements + 1);
    }
}

bool CompactPlacement::place()
{
    countPlacements();
    if (placements.front() > Limits::mostPlacements)
        return false;
    placeSubtree(0);
    return moves <= mostMoves;
}

// The first position that is free for the node on its level. Subtrees of different parents stand
// two gaps apart, siblings one.
double CompactPlacement::freePosition(int node, double start, bool first) const
{
    const double taken = levelEnd[levels.levels[node]];
    // At 0 stands nothing yet.
    const double y = taken == 0.0 ? options.start : taken + options.nodeSep * (first ? 2 : 1);
    return std::max(start, y);
}

// Puts a node where it stands and gives back its end. The end is that of the position before it
// loses its digits.
double CompactPlacement::settle(int node, double y)
{
    position[node] = stored(y);
    const double end = y + extents[node];
    double &level = levelEnd[levels.levels[node]];
    level = std::max(level, end);
    levelEnd.back() = std::max(levelEnd.back(), end);
    return end;
}

// The position of a parent whose children are placed. The place that is free for it is cut to whole
// points: a pushed parent may stand up to one point too near to its neighbour, which is meant.
double CompactPlacement::centre(const Visit &visit)
{
    const double y = (visit.end - visit.firstY - extents[visit.node]) * 0.5 + visit.firstY;
    const double floor = truncated(visit.free);
    if (!(floor > y))
        return y;
    shiftChildren(visit.node, floor - y);
    return floor;
}

void CompactPlacement::placeSubtree(int root)
{
    std::vector<Visit> open;
    const auto enter = [&](int node, double start, bool first) {
        open.push_back({.node = node,
                        .childrenLeft = reached.firstChild[node + 1] - reached.firstChild[node],
                        .start = start,
                        .free = freePosition(node, start, first),
                        .next = start});
    };
    enter(root, options.start, false);
    while (moves <= mostMoves) {
        if (open.back().childrenLeft > 0) {
            Visit &visit = open.back();
            const int child =
                reached.children[reached.firstChild[visit.node] + --visit.childrenLeft];
            enter(child, visit.next, visit.firstPlaced);
            continue;
        }
        const Visit done = open.back();
        open.pop_back();
        const bool isLeaf = reached.firstChild[done.node + 1] == reached.firstChild[done.node];
        const double end = settle(done.node, isLeaf ? done.free : centre(done));
        if (open.empty())
            return;
        Visit &parent = open.back();
        parent.end = end;
        parent.next = end + options.nodeSep;
        if (parent.firstPlaced)
            parent.firstY = position[done.node];
        parent.firstPlaced = false;
    }
}

void CompactPlacement::shiftChildren(int node, double delta)
{
    moves += placements[node] - 1;
    if (moves > mostMoves)
        return;
    for (int i = reached.firstChild[node]; i < reached.firstChild[node + 1]; ++i)
        shiftSubtree(reached.children[i], delta);
}

// Levels are only ever taken further: where a subtree moved away, they stay taken and leave a gap.
void CompactPlacement::shiftSubtree(int root, double delta)
{
    if (reached.isTree) {
        shiftTree(root, reached.subtreeEnd[root], delta);
        return;
    }
    // A node that can be reached on two ways from here moves twice.
    pending.push_back(root);
    while (!pending.empty()) {
        const int node = pending.back();
        pending.pop_back();
        shiftRange(node, node + 1, delta);
        pending.insert(pending.end(), reached.children.begin() + reached.firstChild[node],
                       reached.children.begin() + reached.firstChild[node + 1]);
    }
}

// Moves neighbouring nodes of a tree, whole blocks of them where there are such. Subtrees are moved
// from the inside out, so that a block that was moved as a whole once is never moved in part.
void CompactPlacement::shiftTree(int first, int behind, double delta)
{
    const int firstWhole = std::min((first + blockSize - 1) / blockSize * blockSize, behind);
    const int behindWhole = std::max(behind / blockSize * blockSize, firstWhole);
    shiftRange(first, firstWhole, delta);
    for (int node = firstWhole; node < behindWhole; node += blockSize)
        shiftBlock(node, delta);
    shiftRange(behindWhole, behind, delta);
}

// In a deep tree far from the origin nearly every parent is pushed, by less than the last digit of
// the positions: all that it moves stays where it is and takes nothing of its levels that it had
// not taken before. A look at the block tells that without going through its nodes: moves go
// forward, and what lies between a position and a place that is kept as that position is kept as
// it, too.
void CompactPlacement::shiftBlock(int first, double delta)
{
    Block &block = blocks[first / blockSize];
    if (block.isUniform && block.position + delta <= block.taken)
        return;
    block.taken = shiftRange(first, first + blockSize, delta);
    const auto begin = position.cbegin() + first;
    block.position = *begin;
    block.isUniform = std::all_of(begin, begin + blockSize,
                                  [&](double other) { return other == block.position; });
}

// The inner loop of trees in which nearly every parent is pushed. It is `settle` with all that it
// uses at hand. Gives back the nearest of the positions before they lose their digits.
double CompactPlacement::shiftRange(int first, int behind, double delta)
{
    StoredNumber keep = stored;
    double furthest = levelEnd.back();
    double nearest = std::numeric_limits<double>::infinity();
    double *const ends = levelEnd.data();
    double *const positions = position.data();
    const double *const sizes = extents.data();
    const int *const numbers = levels.levels.data();
    for (int node = first; node < behind; ++node) {
        const double y = positions[node] + delta;
        positions[node] = keep(y);
        const double end = y + sizes[node];
        nearest = std::min(nearest, y);
        furthest = std::max(furthest, end);
        ends[numbers[node]] = std::max(ends[numbers[node]], end);
    }
    levelEnd.back() = furthest;
    stored = keep;
    return nearest;
}

} // namespace ORR::Graph::Layout
