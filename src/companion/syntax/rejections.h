#pragma once

#include "companion/findings/finding.h"
#include "graph/dot_fault.h"

#include <QByteArray>

namespace ORR::Companion {

// Why the reader rejected the text (with its line ends normalised), in the words of the rule that
// the fault looks like: what was found, what was expected, and how to write what is likely meant.
// Every fault has one.
Finding explained(const Graph::DotFault &fault, const QByteArray &text);

// The same of a text that the reader takes and the replay rejects.
Finding explainedReplay(const Graph::DotFault &fault, const QByteArray &text);

} // namespace ORR::Companion
