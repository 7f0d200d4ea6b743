#pragma once

#include "companion/syntax/syntax_rules.h"
#include "graph/dot_fault.h"

#include <QByteArray>

namespace ORR::Companion {

// Why the reader rejected the text (with its line ends normalised), in the words of the rule that
// the fault looks like: what was found, what was expected, and how to write what is likely meant.
// Every fault has one.
SyntaxFinding explained(const Graph::DotFault &fault, const QByteArray &text);

// The same of a text that the reader takes and the replay rejects.
SyntaxFinding explainedReplay(const Graph::DotFault &fault, const QByteArray &text);

} // namespace ORR::Companion
