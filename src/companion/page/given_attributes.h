#pragma once

#include "graph/dot_graph.h"

#include <QHash>

namespace ORR::Companion {

// What the author of a graph gave each object itself, without defaults. Made before an engine runs,
// which writes its own numbers on the objects.
//
// A text that is replayed has them already: what the engines and the drawing operations of xdot
// write there is left out.
class GivenAttributes
{
public:
    // Keeps nothing of the graph but the addresses of its objects.
    explicit GivenAttributes(const Graph::DotGraph &graph);

    // In the order of the text; empty for an object of no graph.
    Graph::AttributeMap of(const Graph::DotObject *object) const { return given.value(object); }

private:
    void keep(const Graph::DotObject *object, const Graph::AttributeMap &attributes);

    QHash<const Graph::DotObject *, Graph::AttributeMap> given; // without those that have none
};

} // namespace ORR::Companion
