#pragma once

#include "companion/import/import_format.h"

namespace ORR::Companion {

// Sizes of programs: what size(1) of GNU binutils 2.40 writes, with -A or without; the comma
// separated tables of `bloaty --csv` (columns are found by their names,
// https://github.com/google/bloaty/blob/main/doc/using.md); and the map of GNU ld (-Map=FILE).
//
// Of a map the pieces of each object are within its section, or with --by object its sections
// within the object; what the linker discarded is passed over.
int likenessOfSize(QByteArrayView beginning);

ImportResult readSize(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
