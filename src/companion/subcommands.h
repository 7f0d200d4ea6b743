#pragma once

#include "companion/command/subcommand.h"

#include <span>

namespace ORR::Companion {

// All subcommands of `orr`, in the order of its help.
std::span<const Subcommand> subcommands();

} // namespace ORR::Companion
