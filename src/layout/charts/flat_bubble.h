#pragma once

#include "layout/layout_context.h"

#include <QString>

namespace ORR::Graph::Layout {

// Draws nodes as circles, packed tightly by `packSiblings` within the circle of their subgraph, and
// so on from the innermost subgraphs to the root, which itself gets no circle and no label. The
// whole is then scaled once, so that every label fits into its circle and the drawing gets the
// wanted size: one label that is too large makes all circles larger.
//
// The attributes are those of bubble_attributes.h; legend_attributes.h and paint_attributes.h have
// the rest. The legend takes no part in the packing.
//
// A gradient shows its first stop. Positions go from the packing to the drawing as texts of six
// digits. Nesting may be of any depth.
class FlatBubble
{
public:
    // Draws the graph. What comes back is the result of the device's `end`.
    static QString run(const LayoutContext &context);
};

} // namespace ORR::Graph::Layout
