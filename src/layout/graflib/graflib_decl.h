#pragma once

#include "graph/dot_graph.h"
#include "layout/layout_context.h"

#include <QRectF>
#include <QSizeF>
#include <QString>

namespace ORR::Graph::Layout {

class GraflibPainter;

// The engine of declaration diagrams. A graph holds a vertical stack of its nodes and, under it, a
// grid of its subgraphs, each of which is such a graph again. The input says what stands where;
// nothing is ranked or searched.
//
//   on      attribute          read, written  unit, meaning, default
//   root    pad                read           inches, x or x,y: border of the page, 0
//   root    rankdir            written        "LR": the drawing has one orientation only
//   graph   nodesep            read           inches: between stacked nodes, twice that between
//                                             cells, 0
//   graph   grid               read           "row": every row runs by itself; "col": every column
//                                             does; anything else: a table whose lines are aligned
//   graph   row, col           read           whole numbers from 0: the cell in the parent, 0
//   graph   margin             read           inches, x or x,y: around the content, 0
//   graph   contentpos         read           vertical and horizontal letter: b, m or top; c, r or
//                                             left; a single letter is the vertical one
//   graph   margin of nodes    read           inches, x or x,y: around the labels, 0
//   node    xoffset            read           inches to the right, 0
//   graph, node  width, height  both          points
//   graph, node  d1, d2         written       points: x and y of the top left corner
//
// The two together with `decl_edges.h`, and what `GraflibPainter` reads. All graph attributes are
// inherited, `row`, `col` and `grid` as well: a nested graph without a cell of its own takes the
// address of its parent.
//
// Some rules look like slips and are not: the vertical `margin` makes a graph higher but moves
// nothing in it; a graph with subgraphs and a horizontal `margin` gets the width of the place that
// it fills, not the one that was measured; any edge of a graph widens all its column gaps.
class GraflibDecl
{
public:
    // Lays the graph out and draws it. Empty on success, otherwise a message for the user: that of
    // the device, or that a `row` or `col` is negative, for which nothing is drawn. Large ones cost
    // nothing.
    static QString run(const LayoutContext &context);

private:
    explicit GraflibDecl(const LayoutContext &context) : graph(context.graph) { }

    // Writes `width` and `height` on a graph and all that is in it.
    QSizeF measureGraph(DotSubgraph *top, const GraflibPainter &painter) const;
    QSizeF measuredSize(DotSubgraph *subgraph, const QList<QSizeF> &cells,
                        const GraflibPainter &painter) const;
    void addNodes(DotSubgraph *subgraph, double &width, double &height,
                  const GraflibPainter &painter) const;

    // Writes `d1` and `d2` on a graph and all that is in it.
    void placeGraph(DotSubgraph *top, const QRectF &place) const;
    QList<QRectF> placeCells(DotSubgraph *subgraph, const QRectF &rect, double x, double y) const;

    struct ContentPosition;
    struct GridSpacing;
    ContentPosition contentPosition(const DotSubgraph *subgraph) const;
    GridSpacing gridSpacing(const DotSubgraph *subgraph) const;
    bool spansFirstColumns(const DotSubgraph *subgraph) const;
    bool hasNegativeCell() const;
    int graphInteger(const DotSubgraph *subgraph, const QString &name) const;
    double graphNumber(const DotSubgraph *subgraph, const QString &name) const;
    double nodeNumber(const DotNode *node, const QString &name) const;

    DotGraph *graph;
};

} // namespace ORR::Graph::Layout
