#pragma once

#include "companion/import/import_format.h"

namespace ORR::Companion {

// Any text in Graphviz' DOT language (https://graphviz.org/doc/info/lang.html): undirected graphs,
// `strict`, ports, chains, sets and HTML labels, too. Its edges are drawn as a tree or as a matrix,
// with clusters as groups; with --layout one of Graphviz' own programs lays it out, or
// has done so, and that drawing is replayed.
int likenessOfDot(QByteArrayView beginning);
ImportResult readDot(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
