#pragma once

#include "device/device.h"
#include "graph/dot_graph.h"

namespace ORR::Graph {

// What a layout engine starts from. Neither is owned.
struct LayoutContext
{
    DotGraph *graph;
    Device *device;
};

} // namespace ORR::Graph
