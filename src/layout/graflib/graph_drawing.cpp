#include "layout/graflib/graph_drawing.h"

#include "graph/numbers.h"
#include "graph/subgraph_walk.h"
#include "layout/graflib/edge_painter.h"
#include "layout/graflib/node_painter.h"

namespace ORR::Graph::Layout {

namespace {

void beginPage(const LayoutContext &context, QSizeF size)
{
    const int along = rounded(size.width());
    const int across = rounded(size.height());
    if (PageAxes(context.graph).horizontal)
        context.device->begin(along, across);
    else
        context.device->begin(across, along);
}

} // namespace

QString drawGraph(const LayoutContext &context, const GraphStyle &style, NodeLabels &labels,
                  QSizeF size)
{
    Device *const device = context.device;
    DotSubgraph *const top = context.graph->root();
    const NodePainter nodePainter(context, style);
    const EdgePainter edgePainter(context, style);
    const auto enter = [&](DotSubgraph *subgraph) {
        if (subgraph != top)
            device->beginCluster(subgraph, false);
        nodePainter.drawFrame(subgraph);
        const QList<TextBlock> &blocks = labels.of(subgraph);
        for (qsizetype i = 0; i < blocks.size(); ++i) {
            DotNode *node = subgraph->nodes.at(i);
            device->beginNode(node);
            nodePainter.draw(node, blocks.at(i));
            device->endNode();
        }
        return true;
    };
    const auto leave = [&](DotSubgraph *subgraph) {
        for (DotEdge *edge : std::as_const(subgraph->edges)) {
            device->beginEdge(edge);
            edgePainter.draw(edge);
            device->endEdge();
            device->connect(edge, edge->tail, edge->head);
        }
        if (subgraph != top)
            device->endCluster();
    };

    beginPage(context, size);
    walkSubgraphs(top, enter, leave);
    return device->end();
}

} // namespace ORR::Graph::Layout
