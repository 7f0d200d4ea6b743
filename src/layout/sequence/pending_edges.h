#pragma once

#include "graph/dot_graph.h"

#include <QHash>
#include <QList>

namespace ORR::Graph::Layout {

// The places, in the list of a diagram's nodes, of those that are part of it.
using NodePlaces = QHash<const DotNode *, qsizetype>;

// The edges that came up and still wait for one of their ends to be part of the diagram. Each waits
// under such an end, so that finding those that need wait no longer never looks at the others.
class PendingEdges
{
public:
    explicit PendingEdges(const NodePlaces &nodePlaces) : places(nodePlaces) { }

    // An edge has come up.
    void add(DotEdge *edge);

    // The node has its place now.
    void nodeIsKnown(const DotNode *node);

    // Removes the edges whose ends both have places and returns them in the order in which they
    // were added, early ones that had to wait before later ones.
    QList<DotEdge *> takeReady();

private:
    struct Entry
    {
        qsizetype number;
        DotEdge *edge;
    };

    void file(const Entry &entry);

    const NodePlaces &places;
    QHash<const DotNode *, QList<Entry>> waiting;
    QList<Entry> ready;
    qsizetype added = 0;
};

} // namespace ORR::Graph::Layout
