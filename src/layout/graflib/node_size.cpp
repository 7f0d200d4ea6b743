#include "layout/graflib/node_size.h"

#include "layout/graflib/graflib_attributes.h"

namespace ORR::Graph::Layout {

namespace Rows = GraflibAttributes;

QSizeF nodeSize(QSize label, QSizeF margin, const OutlineStyle &outline)
{
    double width = label.width();
    double height = label.height();
    width += 2 * margin.width();
    height += 2 * margin.height();
    width += outlineAllowance(outline);
    if (outline.isDouble) {
        width += 2 * doubleGap;
        height += 2 * doubleGap;
    }
    return {width, height};
}

OutlineStyle outlineStyle(const DotGraph *graph, const DotNode *node, int fontSize)
{
    const int shape = Rows::shape.of(graph, node);
    return {.shape = shape < 0 ? NodeShape::None : NodeShape(shape),
            .isDouble = Rows::peripheries.of(graph, node) == Rows::Double,
            .rounded = Rows::style.holds(graph, node, Rows::Rounded),
            .fontSize = fontSize};
}

void measureNodes(DotGraph *graph, const DotSubgraph *subgraph, NodeLabels &labels, QSizeF margin)
{
    const int fontSize = Rows::fontSize.of(graph, graph->root());
    const QList<TextBlock> &blocks = labels.of(subgraph);
    for (qsizetype i = 0; i < blocks.size(); ++i) {
        DotNode *node = subgraph->nodes.at(i);
        const TextBlock &label = blocks.at(i);
        const QSizeF size =
            nodeSize({label.width, label.height}, margin, outlineStyle(graph, node, fontSize));
        Rows::width.setNumber(graph, node, size.width());
        Rows::height.setNumber(graph, node, size.height());
    }
}

} // namespace ORR::Graph::Layout
