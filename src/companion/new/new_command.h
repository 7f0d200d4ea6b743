#pragma once

#include "companion/command/subcommand.h"

namespace ORR::Companion {

// `orr new`: writes a small input for an engine, to be changed into one's own.
int runNew(const CommandCall &call);

} // namespace ORR::Companion
