#pragma once

#include "layout/layout_context.h"

#include <QString>

namespace ORR::Graph::Layout {

// Draws a dependency matrix: nodes are headers of columns and rows, and each edge is a filled
// square in the column of its head and the row of its tail. Subgraphs are groups of headers, nested
// to any depth; a group with a label has a bracket with it beyond the headers, and one that has
// both columns and rows a rectangle around their crossing. All squares have one size, the least
// that holds every label.
//
// The attributes are those of matrix_attributes.h; paint_attributes.h has the rest. The label of
// the root counts in the sizes but is not drawn.
//
// Headers are numbered in the order of `chartItemLess`. A node that is both column and row has its
// label at the row. An edge from a node without a row or to one without a column lies in row 0 or
// column 0. Nothing but labels, brackets, rectangles and squares is drawn.
//
// Sizes and positions are whole points; those that no int can hold become the nearest.
class MatrixLayout
{
public:
    // Draws the graph. What comes back is the result of the device's `end`.
    static QString run(const LayoutContext &context);
};

} // namespace ORR::Graph::Layout
