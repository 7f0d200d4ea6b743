#include "companion/companion.h"

#include "companion/command/command_line.h"
#include "companion/command/version.h"
#include "companion/findings/nearest_word.h"
#include "companion/subcommands.h"

#include <algorithm>

namespace ORR::Companion {

namespace {

constexpr char sentence[] = "The companion of orrlayout.";
constexpr char examples[] = "Examples:\n"
                            "  orr check -K treemap areas.dot\n"
                            "  orr draw -K treemap areas.dot";

std::string listOfSubcommands()
{
    std::string list = "Subcommands:\n";
    for (const Subcommand &subcommand : subcommands()) {
        std::string line = std::string("  ") + subcommand.name;
        line.resize(std::max<size_t>(line.size() + 1, 14), ' ');
        list += line + subcommand.sentence + '\n';
    }
    return list;
}

// What is no call of a subcommand: help, the version, or a mistake.
int runWithoutSubcommand(const CommandCall &call)
{
    CommandLine line(call, sentence, listOfSubcommands() + '\n' + examples);
    line.setName("orr SUBCOMMAND");
    line.addVersion({"--version", "Print the version"}, programVersionLine);
    if (!call.arguments.empty() && !call.arguments.front().starts_with('-')) {
        QStringList names;
        for (const Subcommand &subcommand : subcommands())
            names += QString::fromLatin1(subcommand.name);
        const std::string &name = call.arguments.front();
        const QString suggestion = didYouMean(QString::fromStdString(name), names);
        return wrongUse(call,
                        "there is no subcommand '" + name + "'"
                            + (suggestion.isEmpty() ? "" : "; " + suggestion.toStdString()));
    }
    const std::optional<int> status = line.read();
    return status ? *status : wrongUse(call, "a subcommand is missing");
}

} // namespace

int runCompanion(const CommandCall &call)
{
    for (const Subcommand &subcommand : subcommands()) {
        if (call.arguments.empty() || call.arguments.front() != subcommand.name)
            continue;
        CommandCall inner = call;
        inner.name += std::string(" ") + subcommand.name;
        inner.arguments.erase(inner.arguments.begin());
        return subcommand.run(inner);
    }
    return runWithoutSubcommand(call);
}

} // namespace ORR::Companion
