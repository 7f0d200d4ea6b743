#pragma once

#include "companion/import/import_format.h"

namespace ORR::Companion {

// What universal-ctags writes with `--output-format=json --fields=*`, a tag on each line
// (https://docs.ctags.io/en/latest/man/ctags-json-output.5.html, format version 0.0): types with
// their members and bases, and files with the functions that are in no type.
int likenessOfCtags(QByteArrayView beginning);
ImportResult readCtags(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
