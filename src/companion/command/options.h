#pragma once

#include "companion/command/subcommand.h"

#include <CLI/CLI.hpp>

#include <optional>

namespace ORR::Companion {

// The description of a command line, to which a subcommand adds its options. `examples` end the
// help: lines of calls that work.
std::unique_ptr<CLI::App> commandLine(const CommandCall &call, const std::string &sentence,
                                      const std::string &examples);

// Reads the arguments into what the options are bound to. Nothing if the work can begin; otherwise
// the status to end with: help was asked for and printed, or the use is wrong, which was told. What
// the values of options may be is said by the checks of option_faults.h.
std::optional<int> readOptions(CLI::App *app, const CommandCall &call);

// Tells on standard error that the use is wrong and what to do, and gives the status for that.
int wrongUse(const CommandCall &call, const std::string &message);

} // namespace ORR::Companion
