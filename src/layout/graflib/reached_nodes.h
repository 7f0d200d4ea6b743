#pragma once

#include "graph/dot_graph.h"

#include <QList>

#include <functional>
#include <vector>

namespace ORR::Graph::Layout {

// What a node reaches, as plain numbers: a tree, or a directed graph without cycles. The nodes are
// numbered in the order in which a depth-first walk meets them, so that the root is 0 and, in a
// tree, a node and all below it are neighbours.
struct ReachedNodes
{
    QList<DotNode *> nodes; // by number
    // The numbers of a node's successors, in their order and with duplicates, are kids[firstKid[n]]
    // to kids[firstKid[n + 1] - 1].
    std::vector<int> firstKid;
    std::vector<int> kids;
    std::vector<int> subtreeEnd; // in a tree: what lies below n are the numbers up to this one
    std::vector<int> finished; // all numbers, successors before the nodes that lead to them
    bool isTree = true; // no node is reached on two ways
    bool hasCycle = false; // if so, the walk ended there, and only the nodes are of use

    int size() const { return static_cast<int>(nodes.size()); }
};

// Walks what `root` reaches in linear time and without recursion. `successors(node)` gives a
// node's successors in the order wanted.
ReachedNodes reachedFrom(DotNode *root,
                         const std::function<QList<DotNode *>(const DotNode *)> &successors);

} // namespace ORR::Graph::Layout
