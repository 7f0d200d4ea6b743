#pragma once

#include "device/device.h"
#include "device/graph_style.h"
#include "graph/dot_graph.h"
#include "layout/graflib/graflib_shapes.h"

#include <QList>
#include <QSizeF>
#include <QString>

namespace ORR::Graph::Layout {

// What the two Graflib engines share: it measures nodes before they are placed, and afterwards
// walks the graph and draws what the engine left in the attributes. It computes no position.
//
// Engines write `d1` along the rank axis and `d2` across it; which of them is the x of the page is
// decided here, by `rankdir`, and turns a layout from left to right into one from top to bottom.
//
//   on      attribute          read, written  unit, meaning, default
//   root    rankdir            read           "LR", "RL": `d1` is x; anything else: `d1` is y
//   root    fontsize           read           whole points; sizes of round corners and expanders
//   root    expandcolor        read           colour of the expander glyphs, black
//   graph   color              read           not empty and not "none": the graph has a frame, of
//                                             its own `d1`, `d2`, `width`, `height`
//   node    label and fonts    read           see `GraphStyle`
//   node    shape              read           hexagon, octagon, oval, parallelogram, rectangle or
//                                             none; any other has no outline, slash or expander
//   node    peripheries        read           "2": a double outline, 4 points larger
//   node    style              read           holds "rounded", "invis"; and see `GraphStyle`
//   node    slash              read           "true": crossed out from bottom left to top right
//   node    expander           read           "true": has the glyph, on devices that want it
//   node    width, height      both           points
//   node    d1, d2             read           points
//   edge    d1, d2             read           four numbers each, in points; otherwise not drawn
//   edge    arrowhead          read           "normal": a triangle at the head
//
// Nothing fails here: a text that is no number is 0. The only message is the device's own.
class GraflibPainter
{
public:
    // Neither the graph nor the device is owned; `rankdir` must be set by now.
    GraflibPainter(DotGraph *graph, Device *device);

    // How far an expander sticks out of its node along the rank axis, in points.
    int expanderSize() const { return expanderExtent; }

    // Writes `width` and `height`: the label with a margin on both sides and what the outline adds.
    void measureNodes(const QList<DotNode *> &nodes, double marginX, double marginY) const;

    // Draws a node without its label. `fontSize` is that of the root.
    void drawNode(const DotNode *node, int fontSize) const;

    // Draws a graph with all that is in it: frame, nodes, subgraphs, edges.
    void drawGraph(DotSubgraph *graph) const;

    // Begins a page of `size`, given along and across the rank axis, draws the whole graph and ends
    // the drawing. `result` becomes what the device says to that.
    void render(QString &result, const QSizeF &size) const;

private:
    void drawFrame(const DotSubgraph *subgraph, int fontSize) const;
    void drawLabelled(DotNode *node, int fontSize) const;
    void drawEdge(DotEdge *edge) const;
    void drawExpander(const NodeBox &box, int fontSize) const;
    double nodeNumber(const DotNode *node, const QString &name) const;

    DotGraph *graph;
    Device *device;
    GraphStyle style;
    QString xAttr; // the attribute that holds an x of the page
    QString yAttr;
    int expanderExtent;
    int glyphWidth = 0; // of the expander, where the device wants it
    int glyphHeight = 0;
};

} // namespace ORR::Graph::Layout
