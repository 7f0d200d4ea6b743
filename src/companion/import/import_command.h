#pragma once

#include "companion/command/subcommand.h"

namespace ORR::Companion {

// `orr import`: reads what another tool wrote, and writes a graph or draws it at once.
int runImport(const CommandCall &call);

} // namespace ORR::Companion
