#pragma once

#include "companion/syntax/syntax_findings.h"

#include <QByteArray>

namespace ORR::Companion {

// All that is wrong with the syntax of an input, sorted by place; the same on every call. A finding
// of a rule with `rejection` comes exactly if the reader or the replay rejects the text, and is
// one.
SyntaxFindings checkSyntax(const QByteArray &input);

} // namespace ORR::Companion
