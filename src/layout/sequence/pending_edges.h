#pragma once

#include "graph/dot_graph.h"
#include "layout/sequence/grid_object.h"

#include <QHash>
#include <QList>

namespace ORR::Graph::Layout {

// The objects that nodes have become.
using NodeObjects = QHash<const DotNode *, GridObject *>;

// The edges that came up and still wait for an object at one of their ends. Each waits under such
// an end, so that finding those that need wait no longer never looks at the others.
class PendingEdges
{
public:
    explicit PendingEdges(const NodeObjects &nodeObjects) : objects(nodeObjects) { }

    // An edge has come up.
    void add(DotEdge *edge);

    // The node has an object now.
    void nodeIsKnown(const DotNode *node);

    // Removes the edges whose ends both have objects and returns them in the order in which they
    // were added, early ones that had to wait before later ones.
    QList<DotEdge *> takeReady();

private:
    struct Entry
    {
        qsizetype number;
        DotEdge *edge;
    };

    void file(const Entry &entry);

    const NodeObjects &objects;
    QHash<const DotNode *, QList<Entry>> waiting;
    QList<Entry> ready;
    qsizetype added = 0;
};

} // namespace ORR::Graph::Layout
