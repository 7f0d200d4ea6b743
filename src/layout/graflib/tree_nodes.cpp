#include "layout/graflib/tree_nodes.h"

#include <algorithm>

namespace ORR::Graph::Layout {

namespace {

// In place of a number or of a subtree end.
constexpr int notReached = -1;
constexpr int unfinished = -1; // the walk is still in the subtree

} // namespace

std::optional<int> rootOf(const Successors &successors)
{
    std::vector<bool> isHead(successors.size());
    for (const int head : successors.children)
        isHead[head] = true;
    const auto first = std::find(isHead.cbegin(), isHead.cend(), false);
    if (first == isHead.cend() || std::find(first + 1, isHead.cend(), false) != isHead.cend())
        return {};
    return static_cast<int>(first - isHead.cbegin());
}

ReachedNodes reachedFrom(int root, const Successors &successors)
{
    ReachedNodes reached;
    std::vector<int> numbers(successors.size(), notReached);
    struct Step
    {
        int number;
        int next; // index of the child that comes next
        int end; // and of the one behind the last
    };
    std::vector<Step> open;
    const auto enter = [&](int node) {
        const int number = static_cast<int>(reached.nodes.size());
        numbers[node] = number;
        reached.nodes.push_back(node);
        reached.subtreeEnd.push_back(unfinished);
        open.push_back({number, successors.firstChild[node], successors.firstChild[node + 1]});
    };
    enter(root);
    while (!open.empty()) {
        Step &step = open.back();
        if (step.next == step.end) {
            reached.subtreeEnd[step.number] = static_cast<int>(reached.nodes.size());
            reached.finished.push_back(step.number);
            open.pop_back();
            continue;
        }
        const int child = successors.children[step.next++];
        const int known = numbers[child];
        if (known == notReached) {
            enter(child);
            continue;
        }
        reached.isTree = false;
        if (reached.subtreeEnd[known] == unfinished) {
            reached.hasCycle = true;
            return reached;
        }
    }

    for (const int node : reached.nodes) {
        for (int i = successors.firstChild[node]; i < successors.firstChild[node + 1]; ++i)
            reached.children.push_back(numbers[successors.children[i]]);
        reached.firstChild.push_back(static_cast<int>(reached.children.size()));
    }
    return reached;
}

TreeLevels levelsOf(const ReachedNodes &reached)
{
    std::vector<int> levels(reached.size(), 0);
    int deepest = 0;
    for (auto it = reached.finished.crbegin(); it != reached.finished.crend(); ++it) {
        const int node = *it;
        deepest = std::max(deepest, levels[node]);
        for (int i = reached.firstChild[node]; i < reached.firstChild[node + 1]; ++i) {
            int &level = levels[reached.children[i]];
            level = std::max(level, levels[node] + 1);
        }
    }
    return {std::move(levels), deepest + 1};
}

} // namespace ORR::Graph::Layout
