#pragma once

#include "device/graph_style.h"
#include "graph/dot_graph.h"

#include <QList>
#include <QRect>
#include <QSize>

namespace ORR::Graph::Layout {

// The first subgraph with a `legend` attribute of its own, depth first; null if there is none.
DotSubgraph *findLegend(const DotGraph *graph);

// The legend that a chart may carry as a subgraph with an attribute `legend` of its own. A chart
// finds it, computes its own rectangle, places the legend, begins the drawing with the size that
// comes back, draws within the moved rectangle, and draws the legend last. The legend's label is
// its title, and each node with a label is an entry: a square in the node's pen and fill with the
// label beside it. Its attributes are those of legend_attributes.h.
class ChartLegend
{
public:
    // Measures the labels. The legend may be null, and all of it has to outlive this.
    ChartLegend(DotGraph *dotGraph, DotSubgraph *legend, const GraphStyle &graphStyle);

    // Lays the legend out beside the chart as `legendPlaces` does, writes the places on it and on
    // its nodes, moves `rect`, the chart's rectangle, to make room, and returns the size of the
    // whole drawing. A null legend takes no room.
    QSize place(QRect &rect) const;

    // Draws the legend where the attributes say; nothing for null.
    void draw(Device *device) const;

private:
    struct Entry
    {
        DotNode *node;
        TextBlock label;
    };
    void drawEntry(const Entry &entry, Device *device) const;

    DotGraph *graph;
    DotSubgraph *subgraph;
    const GraphStyle &style;
    TextBlock title;
    QList<Entry> entries;
};

} // namespace ORR::Graph::Layout
