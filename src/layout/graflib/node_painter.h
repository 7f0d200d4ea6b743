#pragma once

#include "device/graph_style.h"
#include "layout/graflib/expander.h"
#include "layout/graflib/node_outline.h"
#include "layout/graflib/page_axes.h"
#include "layout/layout_context.h"

namespace ORR::Graph::Layout {

// Draws nodes, and the frames of graphs, where the engine placed them.
class NodePainter
{
public:
    // The style must live as long.
    NodePainter(const LayoutContext &context, const GraphStyle &graphStyle);

    // The outline with its slash and its expander, and the label in its middle. An invisible node
    // has nothing of it.
    void draw(const DotNode *node, const TextBlock &label) const;

    // The frame of a graph that has one.
    void drawFrame(const DotSubgraph *subgraph) const;

private:
    // What an outline is drawn with.
    struct Paint
    {
        Device::Pen *pen;
        Device::Color *fill;
    };
    NodeBox frameBox(const DotSubgraph *subgraph) const;
    void drawOutlined(const DotNode *node, const NodeBox &box) const;
    void drawFigure(const Figure &figure, const Paint &paint) const;
    void drawOutline(const OutlineStyle &look, const NodeBox &box, const Paint &paint) const;
    void drawSlash(const NodeBox &box, const Device::Pen *pen) const;

    const DotGraph *graph;
    Device *device;
    const GraphStyle &style;
    PageAxes axes;
    Expander expander;
    int fontSize;
};

} // namespace ORR::Graph::Layout
