#pragma once

#include "layout/layout_context.h"

#include <QString>

namespace ORR::Graph::Layout {

// Draws a UML sequence diagram. The graph says on which row and column of a grid everything stands;
// the engine finds the position of each row and column from the size of what stands there, and
// paints. Nothing is arranged or routed, and nothing is written into the graph.
//
// Its attributes are those of umlseq_attributes.h. Words are compared exactly, and inheritance
// holds for all attributes: a subgraph without `uml` or `row` has those of the subgraph around it.
//
// What has no known `uml` value is no part of the diagram, and a subgraph without one is skipped
// with everything in it; so is a section outside a fragment. An edge is dropped unless both its
// ends have objects, a return also unless it comes from an activation.
//
// The time is linear in the graph and the grid, apart from sorting edges that had to wait for their
// ends. Subgraphs may nest to any depth.
class UmlSequence
{
public:
    // Builds, lays out and draws a diagram. Returns what the device's `end` returns. If something
    // stands on no row or column of the grid, nothing is drawn and a message that ends in a line
    // feed is returned; the device has not been begun then.
    static QString run(const LayoutContext &context);
};

} // namespace ORR::Graph::Layout
