#pragma once

#include "graph/dot_graph.h"

#include <QHash>

#include <vector>

namespace ORR::Companion {

// What the author of a graph gave each object, itself and by defaults. Made before an engine runs,
// which writes its own numbers on the objects.
//
// A text that is replayed has them already: what the engines and the drawing operations of xdot
// write there is left out.
class GivenAttributes
{
public:
    // Keeps nothing of the graph but the addresses of its objects.
    explicit GivenAttributes(const Graph::DotGraph &graph);

    // What one subgraph says for all nodes or edges in it, where those around it say something
    // else or nothing.
    struct Defaults
    {
        int outer = -1; // those of the subgraphs around, -1 for none
        Graph::AttributeMap attributes;
    };

    // What it was given itself, in the order of the text; empty for an object of no graph.
    Graph::AttributeMap of(const Graph::DotObject *object) const { return given.value(object); }
    const std::vector<Defaults> &defaults() const { return allDefaults; }
    // The innermost ones of a node or an edge, -1 for none.
    int defaultsOf(const Graph::DotObject *object) const { return innermost.value(object, -1); }

private:
    using Map = Graph::AttributeMap;

    void keep(const Graph::DotObject *object, const Map &attributes);
    int nested(int outer, const Map &attributes);
    void keepDefaults(const Graph::DotObject *object, int defaults);

    QHash<const Graph::DotObject *, Map> given; // without those that have none
    std::vector<Defaults> allDefaults;
    QHash<const Graph::DotObject *, int> innermost; // likewise
};

} // namespace ORR::Companion
