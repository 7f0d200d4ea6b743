#pragma once

#include "companion/import/import_format.h"

namespace ORR::Companion {

// Dependencies of several tools, told by what they look like; all inputs are drawn as one:
//
// - lists: lines `a -> b`, or two names with a tab or blanks between;
// - npm's package-lock.json, lockfileVersion 1 to 3;
// - `cargo metadata --format-version 1`;
// - compile_commands.json with the rules (-MD) beside the objects, such rules by themselves (*.d),
//   and `ninja -t deps`;
// - the replies of CMake's file API, codemodel version 2.
//
// A folder is that of a build: its compile_commands.json, with --by targets, or without one, what
// CMake's file API replied in it. Where each form is published stands where it is read.
int likenessOfDeps(QByteArrayView beginning);
ImportResult readDeps(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
