#pragma once

#include "graph/dot_graph.h"
#include "layout/sequence/uml_parts.h"

#include <QString>

namespace ORR::Graph::Layout {

// Reads the parts of a diagram from a graph, into parts that are empty before. An edge belongs to
// the fragment where the last of its ends turned up.
//
// Returns null if every part stands on a row and a column that a grid can have. Otherwise a message
// that ends in a line feed and names the first that does not; the parts are not complete then.
QString collectUml(DotGraph *graph, UmlParts &parts);

} // namespace ORR::Graph::Layout
