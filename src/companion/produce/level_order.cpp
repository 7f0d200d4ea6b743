#include "companion/produce/level_order.h"

#include "companion/produce/strong_components.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace ORR::Companion {

namespace {

// With more vertices no edge is called implied: that takes their square in bits.
constexpr int mostForImplied = 400;

class Levelling
{
public:
    Levelling(int vertices, const QList<std::pair<int, int>> &given)
        : count(vertices), heads(vertices), tails(vertices)
    {
        for (const auto &[tail, head] : given)
            heads[tail].append(head);
    }

    LevelledGraph levelled();

private:
    void findRoots();
    void cutCycles(int root);
    void orderLevels();
    void findImplied();

    int count;
    QList<QList<int>> heads; // without those that were cut, once they are
    QList<QList<int>> tails;
    std::vector<char> state; // 1 on the way, 2 done
    QList<int> finished; // heads ahead of tails
    LevelledGraph result;
};

// One vertex of each component that no other one leads to.
void Levelling::findRoots()
{
    const QList<int> component = strongComponents(heads);
    std::vector<char> isReached(size_t(count), 0);
    for (int v = 0; v < count; ++v) {
        for (const int head : heads[v]) {
            if (component[head] != component[v])
                isReached[size_t(component[head])] = 1;
        }
    }
    for (int v = 0; v < count; ++v) {
        char &reached = isReached[size_t(component[v])];
        if (!reached)
            result.roots.append(v);
        reached = 1;
    }
}

void Levelling::cutCycles(int root)
{
    QList<std::pair<int, qsizetype>> path{{root, 0}};
    state[size_t(root)] = 1;
    while (!path.isEmpty()) {
        auto &[v, next] = path.last();
        if (next == heads[v].size()) {
            state[size_t(v)] = 2;
            finished.append(v);
            path.removeLast();
            continue;
        }
        const int head = heads[v][next];
        if (state[size_t(head)] == 1) {
            result.cut.append({v, head});
            heads[v].removeAt(next);
            continue;
        }
        ++next;
        if (state[size_t(head)] == 0) {
            state[size_t(head)] = 1;
            path.append({head, 0});
        }
    }
}

// A level is the longest way from a root; in it a vertex stands where its parents are in the mean.
void Levelling::orderLevels()
{
    QList<int> level(count, 0);
    for (auto v = finished.crbegin(); v != finished.crend(); ++v) {
        for (const int head : heads[*v]) {
            level[head] = std::max(level[head], level[*v] + 1);
            tails[head].append(*v);
        }
    }
    QList<QList<int>> levels;
    for (int v = 0; v < count; ++v) {
        if (levels.size() <= level[v])
            levels.resize(level[v] + 1);
        levels[level[v]].append(v);
    }
    std::vector<double> place(size_t(count), 0);
    for (QList<int> &members : levels) {
        for (const int v : members) {
            double sum = 0;
            for (const int tail : tails[v])
                sum += place[size_t(tail)];
            place[size_t(v)] = tails[v].isEmpty() ? 0 : sum / double(tails[v].size());
        }
        std::stable_sort(members.begin(), members.end(),
                         [&](int a, int b) { return place[size_t(a)] < place[size_t(b)]; });
        for (qsizetype i = 0; i < members.size(); ++i)
            place[size_t(members[i])] = (double(i) + 0.5) / double(members.size());
        result.order += members;
    }
}

void Levelling::findImplied()
{
    std::vector<std::vector<bool>> reach(heads.size());
    for (const int v : std::as_const(finished)) {
        std::vector<bool> below(size_t(count), false);
        for (const int head : heads[v]) {
            for (size_t other = 0; other < size_t(count); ++other) {
                if (reach[size_t(head)][other])
                    below[other] = true;
            }
        }
        for (LevelledGraph::Edge &edge : result.edges) {
            if (edge.tail == v)
                edge.isImplied = below[size_t(edge.head)];
        }
        for (const int head : heads[v])
            below[size_t(head)] = true;
        reach[size_t(v)] = std::move(below);
    }
}

LevelledGraph Levelling::levelled()
{
    state.assign(size_t(count), 0);
    findRoots();
    for (const int root : std::as_const(result.roots))
        cutCycles(root);
    for (int v = 0; v < count; ++v) {
        for (const int head : heads[v])
            result.edges.append({v, head});
    }
    orderLevels();
    if (count <= mostForImplied)
        findImplied();
    return result;
}

} // namespace

LevelledGraph levelled(int vertices, const QList<std::pair<int, int>> &edges)
{
    return Levelling(vertices, edges).levelled();
}

} // namespace ORR::Companion
