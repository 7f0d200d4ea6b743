#pragma once

#include "graph/decimal.h"
#include "graph/dot_graph.h"

#include <QString>

namespace ORR::Graph {

// The numbers that engines keep in the attributes of their graph, as they stand: 0 for an attribute
// that is missing or holds none.

// Of the object itself, without what it inherits.
inline double ownNumber(const DotObject *object, const QString &name)
{
    return numberFrom(object->attributes.value(name));
}

// With what it inherits.
inline double graphNumber(const DotGraph *graph, const DotSubgraph *subgraph, const QString &name)
{
    return numberFrom(graph->graphAttribute(subgraph, name));
}

inline double nodeNumber(const DotGraph *graph, const DotNode *node, const QString &name)
{
    return numberFrom(graph->nodeAttribute(node, name));
}

} // namespace ORR::Graph
