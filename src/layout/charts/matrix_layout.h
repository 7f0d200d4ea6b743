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
//   element   attribute  read or written                                      default
//   subgraph  axis       "x": its nodes are columns, "y": rows, inherited     both
//   subgraph  style      holding "invisible": no rectangle, inherited         visible
//   any       label      text of a header, a bracket or a square; that of     none
//                        the root counts in the sizes but is not drawn
//   node      x, y       written: column and row                              -
//   subgraph  x0, x1     written: first column, and the one behind the last   -
//   subgraph  y0, y1     written: first row, and the one behind the last      -
//   subgraph  xshift     written: how far left of the headers the bracket of  -
//                        a group of rows stands, points
//   subgraph  yshift     written: how far above them that of columns stands   -
//
// Headers are numbered in the order of `chartItemLess`. A node that is both column and row has its
// label at the row. What an element is, is told by the attributes of its own; one that the input
// brings along counts like a written one. An edge from a node without a row or to one without a
// column lies in row 0 or column 0. Nothing but labels, brackets, rectangles and squares is drawn.
//
// Sizes and positions are whole points; those that no int can hold become the nearest.
class MatrixLayout
{
public:
    // Draws the graph. What comes back is the result of the device's `end`.
    QString run(const LayoutContext &context);
};

} // namespace ORR::Graph::Layout
