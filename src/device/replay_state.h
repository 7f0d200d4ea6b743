#pragma once

#include "device/device.h"

#include <QByteArrayView>
#include <QList>
#include <QPoint>
#include <QString>

namespace ORR::Graph::Graphviz {

// What a frame of the replay stands for: a graph object, or one of its drawing attributes.
enum class ReplayObjectKind {
    Bottom = -1,
    HeadDrawing = 0, // _hdraw_
    TailDrawing = 1, // _tdraw_
    Drawing = 2, // _draw_
    Edge = 3,
    Graph = 4,
    Label = 5, // _ldraw_
    HeadLabel = 6, // _hldraw_
    TailLabel = 7, // _tldraw_
    Node = 8,
    Cluster = 9,
};

// A text that waits for the end of its drawing attribute: where left-aligned texts begin is known
// only when all of them are.
struct PendingText
{
    Device::Text *text;
    QPoint position; // top left, on the page
    int width; // as the drawing states it, in points
    bool leftAligned;
    bool html;
};

// One frame of the replay: the settings that hold now. A new frame starts with those of the frame
// around it, and what is set inside dies with it.
//
// Fill, pen colour and font size have no value until a text sets one: null and 0. A drawing that
// relies on them comes out with what the device makes of a pen or a text without colour and of a
// font without size.
struct ReplayState
{
    QList<PendingText> pendingTexts; // of this frame only
    ReplayObjectKind kind = ReplayObjectKind::Bottom;
    DotEdge *edge = nullptr; // of an edge frame, may be null
    DotSubgraph *subgraph = nullptr; // of a cluster frame, may be null
    DotNode *node = nullptr; // of a node frame, may be null
    Device::Color *fill = nullptr;
    Device::Color *penColor = nullptr; // of lines and texts
    int penStyle = Device::Pen::Solid;
    int penWidth = 1;
    QString fontName;
    double fontSize = 0.0;
    int objectWidth = 0; // from "width", in points
    int posX = 0; // from "pos"
    double cornerRadius = 0.0; // from "rounded"; 0 for square corners

    // A frame within this one.
    ReplayState inner(ReplayObjectKind innerKind) const;
    Device::Pen *pen(Device *device) const { return device->pen(penColor, penStyle, penWidth); }
};

// Acts on an attribute or on an op of the same meaning: color, fillcolor, fontname, fontsize,
// penwidth, style and rounded. Any other name, and a style that is not known, has no effect.
void applySetting(ReplayState &state, Device *device, QByteArrayView name, QByteArrayView value);

} // namespace ORR::Graph::Graphviz
