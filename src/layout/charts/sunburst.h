#pragma once

#include "layout/layout_context.h"

#include <QString>

namespace ORR::Graph::Layout {

// Draws the tree of subgraphs as rings around each other, one for each level of nesting. Each
// member of a subgraph, node or subgraph, gets the share of its angle that it has of its area, in
// the order of `chartItemLess`. Slices below 0.29 degrees are left out, smallest first, with all
// that is in them, and the others share their room. Slices have no labels.
//
//   element         attribute  read or written                                default
//   root            sweep      whole angle, degrees; up to 180 the page       360, then written
//                              holds the upper half only
//   root            rstep      width of a ring, points                        72, also unless > 0
//   root            a0         angle at which all rings start, degrees        0
//   root            r1         radius at which the first ring starts, points  0
//   root            r0         inner radius of the root's own disc, which     0
//                              is drawn where it is below r1
//   node            area       weight                                         0
//   subgraph        area       written: the sum of its members                -
//   subgraph        legend     marks the legend, see chart_legend.h           no legend
//   node, subgraph  sweep, a0  written: angle and start of the slice,         -
//                              degrees
//   node, subgraph  r0, r1     written: inner and outer radius, points        -
//
// Angles run counter-clockwise from the right. Pens and fills are those of `GraphStyle`, a gradient
// showing its first stop. Angles and radii go from one ring to the next, and to the drawing, as
// texts of six digits; so the slices of a ring fill it to within that. What was left out keeps a
// `sweep` that the input gave it, and is then drawn by it. Nesting may be of any depth.
class Sunburst
{
public:
    // Draws the graph. What comes back is the result of the device's `end`.
    QString run(const LayoutContext &context);
};

} // namespace ORR::Graph::Layout
