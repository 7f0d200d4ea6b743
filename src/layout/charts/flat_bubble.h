#pragma once

#include "device/device.h"
#include "device/graph_style.h"
#include "graph/dot_graph.h"

#include <QString>

namespace ORR::Graph::Layout {

// Draws nodes as circles, packed tightly by `packSiblings` within the circle of their subgraph, and
// so on from the innermost subgraphs to the root, which itself gets no circle and no label. The
// whole is then scaled once, so that every label fits into its circle and the drawing gets the
// wanted size: one label that is too large makes all circles larger.
//
//   element         attribute      read or written                             default
//   node            radius         radius, points before scaling               0
//   node            area           where the radius is not above 0, it is      0
//                                  sqrt(area / 3.14); that divisor is meant
//   root            width, height  the larger one is the wanted diameter,      0
//                                  points
//   node, subgraph  label          text in the middle                          none
//   subgraph        legend         marks the legend, see chart_legend.h; it    no legend
//                                  takes no part in the packing
//   node, subgraph  x, y           written: the centre of the circle, from     -
//                                  that of its parent, before scaling
//   node, subgraph  r              written: the radius and 1, before scaling   -
//
// Pens, fills and fonts are those of `GraphStyle`, a gradient showing its first stop. Positions go
// from the packing to the drawing as texts of six digits. The 1 that every radius is packed with is
// taken off again after the scaling, so that the gap between two circles is 2 points at any scale.
//
// A drawing that would be larger than an int can measure is scaled down until it is not, also where
// labels ask for more. Radii beyond 1e290 count as that.
//
// An area below 0 has no root, and its circle no place: it is packed as `packSiblings` says for
// what is no number. Nesting may be of any depth.
class FlatBubble
{
public:
    // Neither is owned.
    FlatBubble(DotGraph *dotGraph, Device *drawingDevice);

    // Draws the graph. What comes back is the result of the device's `end`.
    QString run();

private:
    double packLevel(DotSubgraph *subgraph);
    double nodeRadius(const DotNode *node) const;
    double labelScale(const GraphStyle &style) const;
    void paintLevel(const GraphStyle &style, DotSubgraph *subgraph, double x, double y,
                    double scale);
    void paintCircle(QPointF centre, double r, Device::Pen *pen, Device::Color *fill);
    void paintLabel(const TextBlock &label, QPointF centre);

    DotGraph *graph;
    Device *device;
    DotSubgraph *legend = nullptr;
};

} // namespace ORR::Graph::Layout
