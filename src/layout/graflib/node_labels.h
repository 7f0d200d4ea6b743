#pragma once

#include "device/graph_style.h"

#include <QHash>
#include <QList>

namespace ORR::Graph::Layout {

// The labels of the nodes of a graph, each split into its lines and measured once, for whoever asks
// first: measuring and drawing use the same ones.
class NodeLabels
{
public:
    // The style must live as long.
    explicit NodeLabels(const GraphStyle &graphStyle) : style(graphStyle) { }

    // The labels of the subgraph's own nodes, in their order. Valid until another subgraph is asked
    // for.
    const QList<TextBlock> &of(const DotSubgraph *subgraph);

private:
    const GraphStyle &style;
    QHash<const DotSubgraph *, QList<TextBlock>> labels;
};

} // namespace ORR::Graph::Layout
