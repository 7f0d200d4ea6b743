#pragma once

#include "device/device.h"
#include "device/text_block.h"

#include <QRectF>
#include <QString>

namespace ORR::Graph {

// Turns the DOT attributes of graph objects into a device's paint values, by the rows of
// paint_attributes.h: engines never read paint attributes themselves. A plain pair of graph and
// device, neither of them owned.
//
// A colour spec is a colour string, or several of them with ";" between: a gradient through them,
// where the area that it is to fill is known and not tiny, and otherwise the first of them. Nothing
// here fails: what does not parse takes its default.
class GraphStyle
{
public:
    GraphStyle(DotGraph *dotGraph, Device *drawingDevice) : graph(dotGraph), device(drawingDevice)
    {
    }

    // `angle` is in degrees. `bounds` is the area that a gradient spans; null gives a solid colour.
    // Null if spec is empty.
    Device::Color *paint(const QString &spec, const QString &style, double angle,
                         const QRectF *bounds) const;
    Device::Color *clusterFill(const DotSubgraph *subgraph, const QRectF *bounds) const;
    Device::Color *edgeFill(const DotEdge *edge, const QRectF *bounds) const;
    Device::Color *nodeFill(const DotNode *node, const QRectF *bounds) const;

    // The default font unless there are a family and a size, which is in points and not 0.
    Device::Font *fontFor(const QString &family, double size) const;
    Device::Font *clusterFont(const DotSubgraph *subgraph) const;
    Device::Font *edgeFont(const DotEdge *edge) const;
    Device::Font *nodeFont(const DotNode *node) const;

    // `width` is in points; below 1 it is 1.
    Device::Pen *penFor(const QString &color, const QString &style, int width) const;
    Device::Pen *clusterPen(const DotSubgraph *subgraph) const;
    // plain: without the edge's `style`, so that its dashes do not reach its arrow heads.
    Device::Pen *edgePen(const DotEdge *edge, bool plain) const;
    Device::Pen *nodePen(const DotNode *node) const;

    // The measured label; an empty block if there is none.
    TextBlock clusterLabel(const DotSubgraph *subgraph) const;
    TextBlock edgeLabel(const DotEdge *edge) const;
    TextBlock nodeLabel(const DotNode *node) const;

    // Splits at the escapes \n (centred), \l (left) and \r (right), each of which ends a line; a
    // line feed is a \n. A backslash behind another one escapes nothing.
    TextBlock textBlock(const QString &text, Device::Font *font, const QString &color) const;

private:
    template <typename Object>
    Device::Color *fill(const QString &spec, const Object *object, const QRectF *bounds) const;
    template <typename Object>
    Device::Font *font(const Object *object) const;
    template <typename Object>
    TextBlock labelOf(const Object *object) const;

    // What was asked for last: most objects have their font and their pen from a default, and
    // neighbours the same one.
    struct LastFont
    {
        QString family;
        double size = 0.0;
        Device::Font *font = nullptr; // null if none was asked for
    };
    struct LastPen
    {
        QString color;
        QString style;
        int width = 0;
        Device::Pen *pen = nullptr; // null if none was asked for
    };

    DotGraph *graph;
    Device *device;
    mutable LastFont lastFont;
    mutable LastPen lastPen;
};

} // namespace ORR::Graph
