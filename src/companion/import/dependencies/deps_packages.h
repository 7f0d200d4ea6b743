#pragma once

#include "companion/import/dependencies/deps_reading.h"
#include "companion/import/reading/json_value.h"

// Packages that need packages.
namespace ORR::Companion {

// npm's lock file, lockfileVersion 1 to 3
// (https://docs.npmjs.com/cli/v10/configuring-npm/package-lock-json). What a package needs is
// looked for as the runtime does, in the `node_modules` around it.
//
// The first version has no list of what the package itself needs: it is taken to need those that
// no other one does.
void readNpmLock(const JsonDocument &document, DepsReading *reading);

// What `cargo metadata --format-version 1` writes
// (https://doc.rust-lang.org/cargo/commands/cargo-metadata.html).
void readCargoMetadata(const JsonDocument &document, DepsReading *reading);

} // namespace ORR::Companion
