#pragma once

#include "companion/command/subcommand.h"

namespace ORR::Companion {

// `orr draw`: makes many drawings, by several worker processes. Its status is `AllWell` if all of
// them are there, `Failed` if one is not, `WrongUse` for options that make no sense, two drawings
// with one output, a report or answers that can't be written. SIGINT, SIGTERM and SIGHUP end it as
// they would without a handler, once its workers are gone.
//
// With `workerArgument` in front it is a worker, see there.
int runDraw(const CommandCall &call);

} // namespace ORR::Companion
