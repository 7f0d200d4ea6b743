#include "companion/produce/folded_cycles.h"

#include "companion/produce/strong_components.h"

#include <utility>

namespace ORR::Companion {

void findCycles(FoldedDependencies *folded)
{
    using Edge = FoldedDependencies::Edge;
    QList<QList<int>> heads(folded->parts.size());
    for (const Edge &edge : std::as_const(folded->edges))
        heads[edge.tail].append(edge.head);
    const QList<int> component = strongComponents(heads);
    for (int part = 0; part < folded->parts.size(); ++part)
        folded->parts[part].component = component[part];
    for (Edge &edge : folded->edges) {
        if (edge.tail == edge.head)
            edge.kind = Edge::Within;
        else if (component[edge.tail] == component[edge.head])
            edge.kind = Edge::InCycle;
        else
            edge.kind = edge.tail < edge.head ? Edge::Against : Edge::Needs;
        if (edge.kind == Edge::InCycle)
            folded->parts[edge.tail].isInCycle = folded->parts[edge.head].isInCycle = true;
    }
}

} // namespace ORR::Companion
