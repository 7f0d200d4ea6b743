#include "layout/sequence/pending_edges.h"

#include <algorithm>
#include <utility>

namespace ORR::Graph::Layout {

void PendingEdges::add(DotEdge *edge)
{
    file({added++, edge});
}

void PendingEdges::nodeIsKnown(const DotNode *node)
{
    const QList<Entry> entries = waiting.take(node);
    for (const Entry &entry : entries)
        file(entry);
}

QList<DotEdge *> PendingEdges::takeReady()
{
    std::sort(ready.begin(), ready.end(),
              [](const Entry &a, const Entry &b) { return a.number < b.number; });
    QList<DotEdge *> edges;
    edges.reserve(ready.size());
    for (const Entry &entry : std::as_const(ready))
        edges.append(entry.edge);
    ready.clear();
    return edges;
}

void PendingEdges::file(const Entry &entry)
{
    if (!places.contains(entry.edge->tail))
        waiting[entry.edge->tail].append(entry);
    else if (!places.contains(entry.edge->head))
        waiting[entry.edge->head].append(entry);
    else
        ready.append(entry);
}

} // namespace ORR::Graph::Layout
