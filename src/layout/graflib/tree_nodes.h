#pragma once

#include <optional>
#include <vector>

namespace ORR::Graph::Layout {

// The nodes of a graph as plain numbers, with the nodes that their edges lead to.
struct Successors
{
    // The successors of node n, in their order and with duplicates, are children[firstChild[n]] to
    // children[firstChild[n + 1] - 1].
    std::vector<int> firstChild{0};
    std::vector<int> children;

    int size() const { return static_cast<int>(firstChild.size()) - 1; }
};

// The only node that no edge leads to; none if there is none or more than one.
std::optional<int> rootOf(const Successors &successors);

// What a node reaches: a tree, or a directed graph without cycles. The nodes are numbered anew in
// the order in which a depth-first walk meets them, so that the root is 0 and, in a tree, a node
// and all below it are neighbours.
struct ReachedNodes : Successors
{
    std::vector<int> nodes; // what each of them is in the whole graph
    std::vector<int> subtreeEnd; // in a tree: what lies below n are the numbers up to this one
    std::vector<int> finished; // all numbers, successors before the nodes that lead to them
    bool isTree = true; // no node is reached on two ways
    bool hasCycle = false; // if so, the walk ended there, and nothing else is of use
};

// Walks what `root` reaches in linear time and without recursion.
ReachedNodes reachedFrom(int root, const Successors &successors);

// The level of each of them: the length of the longest way to it from the root, which has 0.
struct TreeLevels
{
    std::vector<int> levels;
    int count = 0;
};
TreeLevels levelsOf(const ReachedNodes &reached);

} // namespace ORR::Graph::Layout
