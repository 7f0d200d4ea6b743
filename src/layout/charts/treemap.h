#pragma once

#include "layout/layout_context.h"

#include <QString>

namespace ORR::Graph::Layout {

// Draws the tree of subgraphs as nested rectangles, the area of each in proportion to its `area`,
// tiled by `squarify` and the largest first. A subgraph's area is that of its nodes together. What
// would cover less than four square points is left out, and the others share its room.
//
//   element         attribute  read or written                              default
//   root            width      width of the chart, points                   640, then written
//   root            height     height of the chart, points                  480, then written
//   root            x, y       written: 0
//   node            area       weight                                       0
//   subgraph        area       written: the sum of its members
//   subgraph        margin     inner margins, points: the first number of   5 all round
//                              a comma list left and right, the last one
//                              above and below; inherited
//   node, subgraph  label      drawn only where it fits; a subgraph keeps   none
//                              the room above its members for it
//   subgraph        legend     marks the legend, see chart_legend.h         no legend
//
// Pens, fills and fonts are those of `GraphStyle`. The legend is a subgraph like others and stays
// out of the tiling only because its nodes have no area. Nesting may be of any depth.
class Treemap
{
public:
    // Draws the graph. What comes back is the result of the device's `end`.
    QString run(const LayoutContext &context);
};

} // namespace ORR::Graph::Layout
