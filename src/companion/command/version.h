#pragma once

namespace ORR::Companion {

// The version of the project, "1.0.0".
extern const char *const programVersion;

// What `orr --version` prints: with the commit that the program was built of, as far as it is
// known.
extern const char *const programVersionLine;

} // namespace ORR::Companion
