#pragma once

#include "companion/import/import_format.h"

namespace ORR::Companion {

// Folded stacks, one a line: the frames from the outermost one on with ";" between, a blank, and
// how often the stack was seen. Written by the stackcollapse scripts beside flame graphs
// (Brendan Gregg, "The Flame Graph", Communications of the ACM 59(6), 2016; the form stands in the
// README of his FlameGraph 1.0, and has no versions of its own), and by many profilers that took it
// over; perf 6.1 writes it by "perf script report stackcollapse". Lines that begin with "# " are
// comments.
int likenessOfFolded(QByteArrayView beginning);
ImportResult readFolded(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
