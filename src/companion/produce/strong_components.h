#pragma once

#include <QList>

namespace ORR::Companion {

// The strongly connected components of a graph (Tarjan, "Depth-first search and linear graph
// algorithms", 1972), without recursion: the number of each vertex's component. They are numbered
// so that an edge between two leads to the lower one. `heads` are the vertices that edges lead to,
// by the vertex that they come from.
QList<int> strongComponents(const QList<QList<int>> &heads);

} // namespace ORR::Companion
