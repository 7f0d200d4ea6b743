#pragma once

#include "companion/command/subcommand.h"
#include "companion/draw/draw_request.h"

#include <functional>

namespace ORR::Companion {

class CommandLine;

// `orr draw`: makes many drawings, by several worker processes. Its status is `AllWell` if all of
// them are there, `Failed` if one is not, `WrongUse` for options that make no sense, two drawings
// with one output, a report or answers that can't be written. SIGINT, SIGTERM and SIGHUP end it as
// they would without a handler, once its workers are gone.
//
// With `workerArgument` in front it is a worker, see there.
int runDraw(const CommandCall &call);

// A subcommand that draws files, as its help has it.
struct DrawUse
{
    const char *sentence;
    const char *examples;
    std::function<void(CommandLine *line)> addOptions; // those that only it has
};

// Reads the options that all of them have, with the same meaning: -K, -T, -O, -d, -o, -j, --timeout
// and the inputs. Nothing if the work can begin; otherwise the status to end with, see
// `CommandLine::read`.
std::optional<int> readDrawRequest(const CommandCall &call, const DrawUse &use,
                                   DrawRequest *request);

} // namespace ORR::Companion
