#pragma once

#include "companion/import/dependencies/deps_reading.h"
#include "companion/import/reading/json_value.h"

// Packages that need packages.
namespace ORR::Companion {

// npm's lock file, lockfileVersion 2 and 3
// (https://docs.npmjs.com/cli/v10/configuring-npm/package-lock-json). What a package needs is
// looked for as the runtime does, in the `node_modules` around it.
void readNpmLock(const JsonDocument &document, DepsReading *reading);

// What `cargo metadata --format-version 1` writes
// (https://doc.rust-lang.org/cargo/commands/cargo-metadata.html).
void readCargoMetadata(const JsonDocument &document, DepsReading *reading);

} // namespace ORR::Companion
