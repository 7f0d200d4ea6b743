#pragma once

#include "companion/command/subcommand.h"

namespace ORR::Companion {

// `orr page`: draws one input as a page to look into. Its status is `Failed` if the input can't be
// drawn, `WrongUse` if it can't be read or the page can't be written.
int runPage(const CommandCall &call);

} // namespace ORR::Companion
