#pragma once

#include "companion/import/import_format.h"

// What counters of lines of code print as JSON, by file or by language alone.
namespace ORR::Companion {

// cloc 1.96 (github.com/AlDanial/cloc): --json, with --by-file or --by-file-by-lang.
int likenessOfCloc(QByteArrayView beginning);
ImportResult readCloc(std::vector<ImportSource> &sources, const ImportOptions &options);

// scc 3 (github.com/boyter/scc): --format json or json2, with --by-file.
int likenessOfScc(QByteArrayView beginning);
ImportResult readScc(std::vector<ImportSource> &sources, const ImportOptions &options);

// tokei 12 to 14 (github.com/XAMPPRocky/tokei): --output json, with --files. Code of another
// language within a file counts to the file.
int likenessOfTokei(QByteArrayView beginning);
ImportResult readTokei(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
