#pragma once

#include "companion/import/import_format.h"

namespace ORR::Companion {

// Tables of any origin: records as RFC 4180 has them, with comma, semicolon or tab between, found
// or said by --separator. A column of paths, whose parts are parted by "/", one of sizes, and one
// that colours: numbers on a scale (of a folder their mean), words as sorts.
int likenessOfCsv(QByteArrayView beginning);
ImportResult readCsv(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
