#pragma once

#include "companion/syntax/explanation.h"
#include "companion/syntax/source_tokens.h"
#include "graph/dot_fault.h"

#include <QByteArray>

namespace ORR::Companion {

// Whether the fault stands in a list of attributes.
bool isInList(const Graph::DotFault &fault);

// A token of a graph that can't stand where it does, by what it is and what stands ahead of it.
Explanation explainToken(const Graph::DotFault &fault, const TokensAhead &ahead,
                         const QByteArray &text);

} // namespace ORR::Companion
