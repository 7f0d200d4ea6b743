#pragma once

#include "device/device.h"

#include <QString>

#include <optional>

namespace ORR::Graph::Layout {

// The outlines that a node of the Graflib layouts can have. There are no others: what is not in
// this list has no outline at all, which is less than "none" has.
enum class NodeShape { Hexagon, Octagon, Oval, Parallelogram, Rectangle, None };

// The shape of that exact name, if it is one.
std::optional<NodeShape> nodeShapeNamed(const QString &name);

// By how many points an outline makes its node wider than the label and its margins. `fontSize` is
// that of the whole drawing; `roundedStyle` counts for rectangles only.
double shapeAllowance(NodeShape shape, bool roundedStyle, int fontSize);

// Two opposite corners of a node, in points of the page; not yet whole ones.
struct NodeBox
{
    double x0 = 0.0;
    double y0 = 0.0;
    double x1 = 0.0;
    double y1 = 0.0;
};

// How an outline is drawn.
struct OutlineStyle
{
    Device::Pen *pen = nullptr;
    Device::Color *fill = nullptr; // of the outer figure; the inner one is never filled
    int gap = 0; // above 0: a second figure that far inside the first
    bool rounded = false; // corners of a rectangle
    int fontSize = 0; // of the whole drawing; gives the radius of rounded corners
};

// Draws the outline that fits the box; nothing for `None`. A box without height, or with numbers
// that are none, gives points somewhere and no failure.
void drawOutline(NodeShape shape, const NodeBox &box, const OutlineStyle &style, Device *device);

} // namespace ORR::Graph::Layout
