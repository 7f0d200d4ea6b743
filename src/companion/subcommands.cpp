#include "companion/subcommands.h"

#include "companion/check/check_command.h"

namespace ORR::Companion {

std::span<const Subcommand> subcommands()
{
    static constexpr Subcommand table[] = {
        {"check", "Tell what is wrong with a graph, and where", runCheck},
    };
    return table;
}

} // namespace ORR::Companion
