#pragma once

#include "device/graph_style.h"
#include "layout/charts/chart_items.h"
#include "layout/layout_context.h"

#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>

namespace ORR::Graph::Layout {

// Draws a row of bars: one for each node of the root, and one, stacked of its own nodes, for each
// subgraph of the root. The bars follow each other in the order of `chartItemLess`, and all have
// one scale: the longest is as long as the wanted size says, or longer where a label along a bar or
// the least length of a bar asks for it.
//
//   element   attribute      read                                              default
//   node      area           value of the bar or segment; not drawn unless     0
//                            above 0
//   node      label          text in the middle of the bar                     none
//   subgraph  label          caption at the base of its bar                    none
//   root      rankdir        "BT" upward and "TB" downward, from left to       to the right
//                            right; "RL" to the left and any other text to
//                            the right, from top to bottom
//   root      width, height  wanted size, points; 0 for none                   0
//   subgraph  legend         marks the legend, see chart_legend.h              no legend
//
// A bar without room for its label gets it all the same; it is the scale that makes room, and the
// thickness, which is that of the thickest label or caption. Pens, fills and fonts are those of
// `GraphStyle`, a gradient showing its first stop. Coordinates and sizes are whole points.
class BarChart
{
public:
    // Draws the graph. What comes back is the result of the device's `end`.
    QString run(const LayoutContext &context);

private:
    // A bar or a segment of one, with its label measured.
    struct Bar
    {
        DotNode *node = nullptr;
        double value = 0.0;
        TextBlock label;
    };
    // One place in the row: a bar, or a subgraph with its caption and the segments of its bar.
    struct Place
    {
        DotSubgraph *subgraph = nullptr;
        TextBlock caption;
        QList<Bar> bars;
    };

    QList<Place> measuredPlaces(DotGraph *graph, const DotSubgraph *legend,
                                const GraphStyle &style);
    Place measureGroup(const DotGraph *graph, DotSubgraph *subgraph, const GraphStyle &style);
    Bar measureNode(const DotGraph *graph, DotNode *node, const GraphStyle &style, bool inGroup);
    void finishMeasure(const DotGraph *graph);
    void resetCursor();
    void nextBar();
    int baseAlong() const;
    void drawGroup(Device *device, const Place &place, const GraphStyle &style);
    void drawBar(Device *device, const Bar &bar, const GraphStyle &style, bool stacked);

    bool horizontal = true; // the bars lie, and the row runs down
    bool reversed = false; // the bars grow downward or to the left
    double maxValue = 0.0; // of the longest bar
    int nodeWidth = 0; // of the largest label
    int nodeHeight = 0;
    double scaleX = 0.0; // points a value
    double scaleY = 0.0;
    int groupWidth = 0; // of the largest caption
    int groupHeight = 0;
    int thick = 0; // of a bar
    int band = 0; // the room for the captions
    QRect chartRect;
    int barCount = 0;
    QPoint cursor; // the base of the next bar or segment
};

} // namespace ORR::Graph::Layout
