#pragma once

#include "layout/layout_context.h"

#include <QString>

namespace ORR::Graph::Layout {

// Draws a row of bars: one for each node of the root, and one, stacked of its own nodes, for each
// subgraph of the root. The bars follow each other in the order of `chartItemLess`, and all have
// one scale and one thickness, see bar_places.h. The label of a node stands in the middle of its
// bar, that of a subgraph at the base of its bar.
//
// The attributes are those of bar_attributes.h; legend_attributes.h and paint_attributes.h have the
// rest. A gradient shows its first stop. Coordinates and sizes are whole points.
class BarChart
{
public:
    // Draws the graph. What comes back is the result of the device's `end`.
    static QString run(const LayoutContext &context);
};

} // namespace ORR::Graph::Layout
