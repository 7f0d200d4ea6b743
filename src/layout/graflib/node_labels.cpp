#include "layout/graflib/node_labels.h"

namespace ORR::Graph::Layout {

const QList<TextBlock> &NodeLabels::of(const DotSubgraph *subgraph)
{
    QList<TextBlock> &blocks = labels[subgraph];
    if (blocks.isEmpty()) {
        blocks.reserve(subgraph->nodes.size());
        for (const DotNode *node : subgraph->nodes)
            blocks.append(style.nodeLabel(node));
    }
    return blocks;
}

} // namespace ORR::Graph::Layout
