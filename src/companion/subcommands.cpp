#include "companion/subcommands.h"

#include "companion/check/check_command.h"
#include "companion/draw/draw_command.h"
#include "companion/import/import_command.h"
#include "companion/new/new_command.h"
#include "companion/page/page_command.h"
#include "companion/serve/serve_command.h"
#include "companion/watch/watch_command.h"

namespace ORR::Companion {

std::span<const Subcommand> subcommands()
{
    static constexpr Subcommand table[] = {
        {"check", "Tell what is wrong with a graph, and where", runCheck},
        {"draw", "Make many drawings, by several processes", runDraw},
        {"watch", "Draw again when an input changes, and tell what is wrong", runWatch},
        {"page", "Draw a graph as a page to look into", runPage},
        {"serve", "Show a graph in a browser, and draw it again as it is written", runServe},
        {"import", "Make a graph or a drawing of what another tool wrote", runImport},
        {"new", "Write a small input for an engine, to begin with", runNew},
    };
    return table;
}

} // namespace ORR::Companion
