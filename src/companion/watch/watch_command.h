#pragma once

#include "companion/command/subcommand.h"

namespace ORR::Companion {

// `orr watch`: draws files, and again whenever they change, with what `orr check` finds on standard
// output, until SIGINT, SIGTERM or SIGHUP end it as they would without a handler, once its workers
// are gone. It returns only `WrongUse`, for options that make no sense or findings that can't be
// written.
int runWatch(const CommandCall &call);

} // namespace ORR::Companion
