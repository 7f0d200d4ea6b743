#pragma once

#include "device/graph_style.h"
#include "graph/dot_graph.h"

#include <QRect>
#include <QSize>

// The legend that a chart may carry as a subgraph with an attribute `legend` of its own. A chart
// finds it, computes its own rectangle, places the legend, begins the drawing with the size that
// comes back, draws within the moved rectangle, and draws the legend last.
//
//   element  attribute  read or written                                     default
//   legend   legend     read: "top", "bottom", "left"; any other text       -
//                       means the right side
//   legend   label      read: the title                                     no title
//   node     label      read: the text of an entry, beside a square in the  no entry
//                       node's pen and fill
//   legend,  x, y       written: the top left corner of title and entry,    -
//   node                whole points
namespace ORR::Graph::Layout {

// The rectangle of a chart. A far corner that no int can hold is moved to the nearest that can, so
// that neither the corner nor the width and the height overflow.
QRect chartRect(int left, int top, qint64 width, qint64 height);

// The first subgraph with a `legend` attribute of its own, depth first; null if there is none.
DotSubgraph *findLegend(DotSubgraph *subgraph);

// Lays the legend out along one side of the chart (`legend` is "top", "bottom", "left", or anything
// else for the right), writes `x` and `y` on it and on its nodes, moves `rect`, the chart's
// rectangle, to make room, and returns the size of the whole drawing. A null legend takes no room.
QSize placeLegend(DotGraph *graph, QRect &rect, DotSubgraph *legend, const GraphStyle &style);

// Draws a placed legend; nothing for null.
void drawLegend(Device *device, DotGraph *graph, const GraphStyle &style, DotSubgraph *legend);

} // namespace ORR::Graph::Layout
