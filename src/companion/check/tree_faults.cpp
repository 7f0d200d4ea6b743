#include "companion/check/tree_faults.h"

#include <QHash>
#include <QSet>

#include <numeric>

namespace ORR::Companion {

namespace {

// The ends of the edges of a text as numbers, and the edges by their tails.
struct NumberedEdges
{
    explicit NumberedEdges(const std::vector<CheckedEdge> &edges);

    int nodeCount = 0;
    std::vector<int> heads; // of each edge
    std::vector<int> ofTail; // the edges in the order of their tails
    std::vector<int> first; // of each node in `ofTail`, and the end of the last
    std::vector<bool> isHead; // whether an edge leads to the node
};

NumberedEdges::NumberedEdges(const std::vector<CheckedEdge> &edges)
{
    QHash<const Graph::DotNode *, int> numbers;
    const auto numberOf = [&](const Graph::DotNode *node) {
        const auto known = numbers.constFind(node);
        return known != numbers.cend() ? *known : *numbers.insert(node, nodeCount++);
    };
    std::vector<int> tails;
    tails.reserve(edges.size());
    heads.reserve(edges.size());
    for (const CheckedEdge &edge : edges) {
        tails.push_back(numberOf(edge.edge->tail));
        heads.push_back(numberOf(edge.edge->head));
    }
    first.assign(size_t(nodeCount) + 1, 0);
    isHead.assign(size_t(nodeCount), false);
    for (size_t i = 0; i < edges.size(); ++i) {
        ++first[size_t(tails[i]) + 1];
        isHead[size_t(heads[i])] = true;
    }
    std::partial_sum(first.begin(), first.end(), first.begin());
    std::vector<int> next = first;
    ofTail.resize(edges.size());
    for (size_t i = 0; i < edges.size(); ++i)
        ofTail[size_t(next[size_t(tails[i])]++)] = int(i);
}

// A depth-first walk, which remembers what it has seen from one start to the next.
class CycleSearch
{
public:
    explicit CycleSearch(const NumberedEdges &edges)
        : graph(edges), states(size_t(edges.nodeCount), New)
    {
    }

    // The edge that leads back to an open node; -1 for none.
    int walkFrom(int start);

private:
    enum State : quint8 { New, Open, Done };
    struct Step
    {
        int node;
        int next; // its edge that comes next, in `ofTail`
    };

    const NumberedEdges &graph;
    std::vector<State> states;
};

int CycleSearch::walkFrom(int start)
{
    std::vector<Step> open;
    const auto enter = [&](int node) {
        if (states[size_t(node)] != New)
            return;
        states[size_t(node)] = Open;
        open.push_back({node, graph.first[size_t(node)]});
    };
    enter(start);
    while (!open.empty()) {
        Step &step = open.back();
        if (step.next == graph.first[size_t(step.node) + 1]) {
            states[size_t(step.node)] = Done;
            open.pop_back();
            continue;
        }
        const int edge = graph.ofTail[size_t(step.next++)];
        const int head = graph.heads[size_t(edge)];
        if (states[size_t(head)] == Open)
            return edge;
        enter(head);
    }
    return -1;
}

} // namespace

const CheckedEdge *edgeOfCycle(const CheckedText &text)
{
    const NumberedEdges graph(text.edges());
    CycleSearch search(graph);
    const bool fromHeads = firstRoots(text).empty();
    for (int node = 0; node < graph.nodeCount; ++node) {
        if (graph.isHead[size_t(node)] != fromHeads)
            continue;
        if (const int edge = search.walkFrom(node); edge >= 0)
            return &text.edges()[size_t(edge)];
    }
    return nullptr;
}

std::vector<const CheckedNode *> firstRoots(const CheckedText &text)
{
    QSet<const Graph::DotNode *> heads;
    for (const CheckedEdge &edge : text.edges())
        heads.insert(edge.edge->head);
    std::vector<const CheckedNode *> roots;
    for (const CheckedNode &node : text.nodes()) {
        if (roots.size() < 2 && !heads.contains(node.node))
            roots.push_back(&node);
    }
    return roots;
}

} // namespace ORR::Companion
