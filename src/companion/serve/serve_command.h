#pragma once

#include "companion/command/subcommand.h"

namespace ORR::Companion {

// `orr serve`: shows a text, its drawing and its findings in a browser on the same machine, where
// it can be edited, until SIGINT, SIGTERM or SIGHUP end it as they would without a handler. It
// returns only `WrongUse`, for options that make no sense, a file that can't be read or a port that
// can't be had.
int runServe(const CommandCall &call);

} // namespace ORR::Companion
