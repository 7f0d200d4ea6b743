#pragma once

#include "device/graph_style.h"
#include "layout/graflib/page_axes.h"
#include "layout/layout_context.h"

namespace ORR::Graph::Layout {

// The triangle at the last point of an edge, its first point again at the end. It lies horizontally
// whatever the edge does; where the last run is vertical on the page its tip still points to the
// left. That is meant.
QList<QPoint> arrowTriangle(QPoint tip, QPoint before);

// Draws edges along the polylines that the engine gave them.
class EdgePainter
{
public:
    // The style must live as long.
    EdgePainter(const LayoutContext &context, const GraphStyle &graphStyle)
        : graph(context.graph), device(context.device), style(graphStyle), axes(context.graph)
    {
    }

    // The line and its arrow head; nothing for an edge without four points.
    void draw(const DotEdge *edge) const;

private:
    const DotGraph *graph;
    Device *device;
    const GraphStyle &style;
    PageAxes axes;
};

} // namespace ORR::Graph::Layout
