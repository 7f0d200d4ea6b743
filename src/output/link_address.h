#pragma once

#include "graph/dot_graph.h"

#include <QByteArray>

namespace ORR::Graph {

// The address that an object's own attribute `url` links to, or `URL`, as others spell it; empty
// for none. Only addresses of the web, http and https, and relative ones count. Any other scheme is
// none, and so is a text with a control character, which readers leave out before they look for
// the scheme, and one that is longer than readers of PDF take.
//
// It is ASCII, everything else in it is percent-encoded as UTF-8.
QByteArray linkAddress(const DotObject *object);

} // namespace ORR::Graph
