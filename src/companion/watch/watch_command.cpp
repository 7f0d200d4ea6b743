#include "companion/watch/watch_command.h"

#include "companion/command/command_line.h"
#include "companion/draw/draw_command.h"
#include "companion/watch/watch_run.h"

#include <algorithm>

namespace ORR::Companion {

namespace {

constexpr char sentence[] = "Draw again when an input changes, and tell what is wrong.";
constexpr char examples[] = "Examples:\n"
                            "  orr watch -K treemap areas.dot\n"
                            "  orr watch -K treemap -T svg,png -d . --timeout 10 *.dot";

// What only files can do; empty if all are files.
std::string streamFault(const DrawRequest &request)
{
    if (std::ranges::count(request.files, "-") > 0)
        return "standard input can't be watched; name a file";
    if (request.output == "-")
        return "standard output takes one drawing only; name a file";
    return {};
}

} // namespace

int runWatch(const CommandCall &call)
{
    bool polls = false;
    const DrawUse use{
        sentence, examples, [&](CommandLine *line) {
            line->addFlag({"--poll", "Look for changes; on network file systems"}, &polls);
        }};
    DrawRequest request;
    if (const std::optional<int> status = readDrawRequest(call, use, &request))
        return *status;
    if (const std::string fault = streamFault(request); !fault.empty())
        return wrongUse(call, fault);
    return WatchRun(call, request, polls).run();
}

} // namespace ORR::Companion
