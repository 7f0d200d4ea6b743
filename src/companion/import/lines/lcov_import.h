#pragma once

#include "companion/import/import_format.h"

namespace ORR::Companion {

// Coverage of lines: tracefiles as geninfo(1) of lcov 1.16 describes them, of lcov 2 and of other
// writers too, and the JSON of `gcov --json-format`, format_version 1, as the manual of GCC 12
// describes it ("Invoking gcov"), several documents one behind the other, also packed by gzip.
//
// Several inputs and several records of a file are joined. Functions and branches are passed over.
int likenessOfLcov(QByteArrayView beginning);

ImportResult readLcov(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
