#pragma once

#include "layout/layout_context.h"

#include <QString>

namespace ORR::Graph::Layout {

// Draws the tree of subgraphs as rings around each other, one for each level of nesting. Each
// member of a subgraph, node or subgraph, gets the share of its angle that it has of its area, in
// the order of `chartItemLess`. Slices below 0.29 degrees are left out, smallest first, with all
// that is in them, and the others share their room. Slices have no labels.
//
// The attributes are those of sunburst_attributes.h; legend_attributes.h and paint_attributes.h
// have the rest.
//
// Angles run counter-clockwise from the right. A gradient shows its first stop. Angles and radii go
// from one ring to the next, and to the drawing, as texts of six digits; so the slices of a ring
// fill it to within that. What was left out keeps a `sweep` that the input gave it, and is then
// drawn by it. Nesting may be of any depth.
class Sunburst
{
public:
    // Draws the graph. What comes back is the result of the device's `end`.
    static QString run(const LayoutContext &context);
};

} // namespace ORR::Graph::Layout
