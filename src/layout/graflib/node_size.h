#pragma once

#include "layout/graflib/node_labels.h"
#include "layout/graflib/node_outline.h"

#include <QSize>
#include <QSizeF>

namespace ORR::Graph::Layout {

// The size of a node in points: its label with a margin on all sides, and what the outline adds.
QSizeF nodeSize(QSize label, QSizeF margin, const OutlineStyle &outline);

// The outline that the node's attributes ask for; `None` for a shape that there is not.
OutlineStyle outlineStyle(const DotGraph *graph, const DotNode *node, int fontSize);

// Writes `width` and `height` of the subgraph's own nodes.
void measureNodes(DotGraph *graph, const DotSubgraph *subgraph, NodeLabels &labels, QSizeF margin);

} // namespace ORR::Graph::Layout
