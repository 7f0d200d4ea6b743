#pragma once

#include "companion/findings/finding.h"

namespace ORR::Companion {

// All findings as one JSON document, which ends in a line feed:
//
//   {"errors": 0, "warnings": 1, "files": [{"file": "login.dot", "findings": [
//       {"line": 12, "column": 5, "endLine": 12, "endColumn": 10, "severity": "warning",
//        "rule": "unknown-attribute", "message": "...", "suggestion": "..."}]}]}
//
// Every input has its place in `files`, in the order given. `file` is null for standard input; what
// of a name is no UTF-8 is U+FFFD there. A finding without a place has no members of a place, one
// without a suggestion none of that. An input that can't be read has no findings and the member
// `fault`, which says why. The findings that are only counted are one with the member
// `more`, their number; `errors` and `warnings` count them too.
QByteArray findingsAsJson(const QList<FileFindings> &files);

} // namespace ORR::Companion
