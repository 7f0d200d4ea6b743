#pragma once

#include <QString>

namespace ORR::Graph {

// What whoever draws may ask for beyond what stands in the graph. As it is made it changes nothing.
struct DrawingExtras
{
    double scale = 1.0; // pixels of an image for each point of the page, above 0
    QString background = {}; // a colour below everything; empty for that of the format
    bool embedded = false; // an SVG for a place within a page, see `EmbeddedSvg`
};

} // namespace ORR::Graph
