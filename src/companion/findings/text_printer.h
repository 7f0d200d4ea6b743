#pragma once

#include "companion/findings/finding.h"

namespace ORR::Companion {

// For whom findings are printed.
struct TextForm
{
    bool excerpts = false; // the source line and a caret below each finding
    bool colors = false; // of a terminal
};

// A line for each finding of one input, as compilers write it:
//
//   login.dot:12:5: warning: unknown attribute 'lable'; did you mean 'label'? [unknown-attribute]
//
// UTF-8; control characters of the input are written out. Standard input is "<stdin>".
QByteArray findingsAsText(const FileFindings &file, const TextForm &form);

// Name of an input as messages have it.
QByteArray shownFileName(const QByteArray &file);

// The sentence and the suggestion.
QString messageOf(const Finding &finding);

} // namespace ORR::Companion
