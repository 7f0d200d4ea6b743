#pragma once

#include "companion/import/import_format.h"

namespace ORR::Companion {

// What `du` prints (GNU coreutils 9, and POSIX.1-2017 where it says so): a size, a tab and a path,
// the total of a folder behind what is in it; with -0 a NUL ends each. `--by` says what is counted:
// "blocks" of 1,024 bytes, as du does unless it is told otherwise, or "bytes", as with -b. Without
// it sizes that are all of whole pages of 4 blocks are blocks.
int likenessOfDu(QByteArrayView beginning);
ImportResult readDu(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
