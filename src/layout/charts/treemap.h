#pragma once

#include "layout/layout_context.h"

#include <QString>

namespace ORR::Graph::Layout {

// Draws the tree of subgraphs as nested rectangles, the area of each in proportion to its `area`,
// tiled by `squarify` and the largest first. A subgraph's area is that of its nodes together. What
// would cover less than four square points is left out, and the others share its room.
//
// The attributes are those of treemap_attributes.h; legend_attributes.h and paint_attributes.h have
// the rest. A label is drawn only where it fits; a subgraph keeps the room above its members for
// it.
//
// The legend is a subgraph like others and stays out of the tiling only because its nodes have no
// area. Nesting may be of any depth.
class Treemap
{
public:
    // Draws the graph. What comes back is the result of the device's `end`.
    static QString run(const LayoutContext &context);
};

} // namespace ORR::Graph::Layout
