#include "layout/graflib/reached_nodes.h"

#include <QHash>

#include <utility>

namespace ORR::Graph::Layout {

namespace {

constexpr int unfinished = -1; // the subtree end of a node that the walk is still in

} // namespace

ReachedNodes reachedFrom(DotNode *root,
                         const std::function<QList<DotNode *>(const DotNode *)> &successors)
{
    ReachedNodes reached;
    QHash<const DotNode *, int> numbers;
    QList<DotNode *> kidNodes;
    const auto meet = [&](DotNode *node) {
        numbers.insert(node, reached.size());
        reached.nodes.append(node);
        reached.subtreeEnd.push_back(unfinished);
        reached.firstKid.push_back(static_cast<int>(kidNodes.size()));
        kidNodes.append(successors(node));
    };

    struct Step
    {
        int node;
        int next; // index of the kid that comes next
        int end; // and of the one behind the last
    };
    std::vector<Step> open;
    const auto enter = [&](DotNode *node) {
        meet(node);
        open.push_back(
            {reached.size() - 1, reached.firstKid.back(), static_cast<int>(kidNodes.size())});
    };
    enter(root);
    while (!open.empty()) {
        Step &step = open.back();
        if (step.next == step.end) {
            reached.subtreeEnd[step.node] = reached.size();
            reached.finished.push_back(step.node);
            open.pop_back();
            continue;
        }
        DotNode *kid = kidNodes.at(step.next++);
        const auto known = std::as_const(numbers).constFind(kid);
        if (known == numbers.cend()) {
            enter(kid);
            continue;
        }
        reached.isTree = false;
        if (reached.subtreeEnd[*known] == unfinished) {
            reached.hasCycle = true;
            return reached;
        }
    }

    reached.firstKid.push_back(static_cast<int>(kidNodes.size()));
    reached.kids.reserve(kidNodes.size());
    for (const DotNode *kid : std::as_const(kidNodes))
        reached.kids.push_back(numbers.value(kid));
    return reached;
}

} // namespace ORR::Graph::Layout
