#pragma once

#include "device/device.h"
#include "device/graph_style.h"
#include "layout/sequence/uml_labels.h"
#include "layout/sequence/uml_places.h"

namespace ORR::Graph::Layout {

// A diagram whose parts all have their places.
struct UmlDiagram
{
    UmlParts parts;
    UmlLabels labels;
    UmlExtents extents;
    GridAnchors anchors;
};

// Draws a diagram on a page that was begun. Inner fragments lie over outer ones, nodes over
// fragments, and edges over everything.
void paintUml(const UmlDiagram &diagram, const GraphStyle &style, Device *device);

} // namespace ORR::Graph::Layout
