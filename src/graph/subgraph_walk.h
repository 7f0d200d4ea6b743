#pragma once

#include "graph/dot_graph.h"

#include <QList>

namespace ORR::Graph {

// Walks a tree of subgraphs depth first, children in list order. `enter(subgraph)` is called on the
// way down and says whether the walk goes on into the children; `leave(subgraph)` is called when
// they are done, and only for a subgraph that was gone into. The root takes part like the others.
//
// It stands in for recursion wherever subgraphs nest: an input may nest them 100,000 deep.
template <typename Enter, typename Leave>
void walkSubgraphs(DotSubgraph *root, Enter enter, Leave leave)
{
    struct Level
    {
        DotSubgraph *subgraph;
        qsizetype next; // index of the child that comes next
    };
    QList<Level> open;
    if (enter(root))
        open.append({root, 0});
    while (!open.isEmpty()) {
        Level &level = open.last();
        if (level.next < level.subgraph->subgraphs.size()) {
            DotSubgraph *child = level.subgraph->subgraphs.at(level.next++);
            if (enter(child))
                open.append({child, 0});
        } else {
            DotSubgraph *done = level.subgraph;
            open.removeLast();
            leave(done);
        }
    }
}

// All subgraphs from the root on, parents before children.
inline QList<DotSubgraph *> subgraphsInPreorder(DotSubgraph *root)
{
    QList<DotSubgraph *> all;
    walkSubgraphs(
        root,
        [&](DotSubgraph *subgraph) {
            all.append(subgraph);
            return true;
        },
        [](DotSubgraph *) {});
    return all;
}

} // namespace ORR::Graph
