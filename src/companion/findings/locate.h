#pragma once

#include "companion/findings/finding.h"

#include "graph/source_text.h"

namespace ORR::Companion {

// The findings with their lines, columns and excerpts, in their order. All together take one or two
// passes over the text.
QList<Finding> located(QList<Finding> findings, Graph::SourceText *text);

} // namespace ORR::Companion
