#pragma once

#include "companion/command/subcommand.h"

namespace ORR::Companion {

// `orr check`: reads inputs and prints what is wrong with them on standard output. Its status is
// `AllWell` with nothing worse than warnings, `Failed` with an error (with --werror a warning,
// too), `WrongUse` if a file can't be read, in which case the others are checked all the same.
int runCheck(const CommandCall &call);

} // namespace ORR::Companion
