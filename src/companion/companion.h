#pragma once

#include "companion/command/subcommand.h"

namespace ORR::Companion {

// `orr`: hands a call to its subcommand, or helps, and gives the exit status.
int runCompanion(const CommandCall &call);

} // namespace ORR::Companion
