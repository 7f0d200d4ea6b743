#include "companion/produce/strong_components.h"

#include <algorithm>

namespace ORR::Companion {

namespace {

// The names are those of the paper.
class ComponentSearch
{
public:
    explicit ComponentSearch(const QList<QList<int>> &edges)
        : heads(edges), number(edges.size(), 0), lowlink(edges.size(), 0),
          nextHead(edges.size(), 0), component(edges.size(), -1)
    {
    }

    QList<int> components();

private:
    void enter(int v);
    void leave(int v);
    void searchFrom(int v);

    const QList<QList<int>> &heads;
    QList<int> number; // from 1; 0 for what was not visited
    QList<int> lowlink;
    QList<qsizetype> nextHead;
    QList<int> component;
    QList<int> points; // visited, their component not complete
    QList<int> path; // from where the search began to where it is
    int numbered = 0;
    int complete = 0;
};

void ComponentSearch::enter(int v)
{
    number[v] = lowlink[v] = ++numbered;
    points.append(v);
    path.append(v);
}

void ComponentSearch::leave(int v)
{
    path.removeLast();
    if (!path.isEmpty())
        lowlink[path.last()] = std::min(lowlink[path.last()], lowlink[v]);
    if (lowlink[v] != number[v])
        return;
    int taken = -1;
    do {
        taken = points.takeLast();
        component[taken] = complete;
    } while (taken != v);
    ++complete;
}

void ComponentSearch::searchFrom(int first)
{
    enter(first);
    while (!path.isEmpty()) {
        const int v = path.last();
        if (nextHead[v] == heads[v].size()) {
            leave(v);
            continue;
        }
        const int w = heads[v][nextHead[v]++];
        if (number[w] == 0)
            enter(w);
        else if (component[w] < 0)
            lowlink[v] = std::min(lowlink[v], number[w]);
    }
}

QList<int> ComponentSearch::components()
{
    for (int v = 0; v < heads.size(); ++v) {
        if (number[v] == 0)
            searchFrom(v);
    }
    return component;
}

} // namespace

QList<int> strongComponents(const QList<QList<int>> &heads)
{
    return ComponentSearch(heads).components();
}

} // namespace ORR::Companion
