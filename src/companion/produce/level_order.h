#pragma once

#include <QList>

#include <utility>

namespace ORR::Companion {

// A graph of vertices in levels, made of one that may have cycles.
struct LevelledGraph
{
    struct Edge
    {
        int tail;
        int head;
        bool isImplied = false; // there is a longer way between the two
    };

    QList<int> roots; // so many that all is reached
    QList<Edge> edges; // in the order in which they were given
    QList<Edge> cut; // those that closed cycles
    QList<int> order; // of the vertices, level by level: those with parents close by stand together
};

// `edges` are pairs of tail and head, none of a vertex to itself.
LevelledGraph levelled(int vertices, const QList<std::pair<int, int>> &edges);

} // namespace ORR::Companion
