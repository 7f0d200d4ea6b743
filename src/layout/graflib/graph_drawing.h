#pragma once

#include "layout/graflib/node_labels.h"
#include "layout/layout_context.h"

#include <QSizeF>
#include <QString>

namespace ORR::Graph::Layout {

// Draws a graph that a Graflib engine has laid out, from what it left in the attributes: frame,
// nodes, subgraphs and edges of each graph, in this order. It computes no position.
//
// Begins a page of `size`, given along and across the direction of the layout, draws and ends the
// drawing. The result is what the device says to that; nothing else fails.
QString drawGraph(const LayoutContext &context, const GraphStyle &style, NodeLabels &labels,
                  QSizeF size);

} // namespace ORR::Graph::Layout
