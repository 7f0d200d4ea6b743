#pragma once

#include "companion/import/lines/covered_files.h"
#include "companion/import/reading/import_source.h"

#include <optional>

namespace ORR::Companion {

// Whether a text is JSON of gcov: it begins as an object, and has members that only gcov
// writes, of this version or an older one.
bool isGcovJson(QByteArrayView beginning);

// Adds the lines of all documents of a source. Relative paths are those of the folder in which the
// compiler ran. Counts below zero are told in `below`.
std::optional<ImportFault> readGcovJson(ImportSource *source, CoveredFiles *files,
                                        CountedNote *below);

} // namespace ORR::Companion
