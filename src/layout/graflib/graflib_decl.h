#pragma once

#include "layout/layout_context.h"

#include <QString>

namespace ORR::Graph::Layout {

// The engine of declaration diagrams. A graph holds a vertical stack of its nodes and, under it, a
// grid of its subgraphs, each of which is such a graph again. The input says what stands where;
// nothing is ranked or searched.
//
// Its attributes: see gfdecl_attributes.h. Some rules look like slips and are not: the vertical
// `margin` makes a graph higher but moves nothing in it; a graph with subgraphs and a horizontal
// `margin` gets the width of the place that it fills, not the one that was measured; any edge of a
// graph widens all its column gaps.
class GraflibDecl
{
public:
    // Lays the graph out and draws it. Empty on success, otherwise a message for the user: that of
    // the device, or that a `row` or `col` is negative, for which nothing is drawn. Large ones cost
    // nothing.
    static QString run(const LayoutContext &context);
};

} // namespace ORR::Graph::Layout
