#include "companion/command/options.h"

#include "companion/command/option_faults.h"
#include "companion/command/streams.h"

namespace ORR::Companion {

namespace {

constexpr size_t columnOfSentences = 26;

// The arguments as the parser takes them, from the back. It would take "[a]" for a list that holds
// "a", so that such a name is led in by its folder.
std::vector<std::string> guarded(const std::vector<std::string> &arguments)
{
    std::vector<std::string> result(arguments.rbegin(), arguments.rend());
    for (std::string &argument : result) {
        if (argument.starts_with('[') && argument.ends_with(']'))
            argument.insert(0, "./");
    }
    return result;
}

int printHelp(const CommandCall &call, const std::string &text)
{
    return print(call, QByteArray::fromStdString(text)) ? AllWell : WrongUse;
}

} // namespace

std::unique_ptr<CLI::App> commandLine(const CommandCall &call, const std::string &sentence,
                                      const std::string &examples)
{
    auto app = std::make_unique<CLI::App>(sentence, call.name);
    app->get_formatter()->column_width(columnOfSentences);
    app->set_help_flag("-h,--help", "Print this help");
    app->footer(examples);
    return app;
}

std::optional<int> readOptions(CLI::App *app, const CommandCall &call)
{
    const ArgumentFaults faults = argumentFaults(*app, call.arguments);
    if (faults.asksForHelp)
        return printHelp(call, app->help());
    if (!faults.first.isEmpty())
        return wrongUse(call, faults.first.toStdString());
    try {
        app->parse(guarded(call.arguments));
    } catch (const CLI::CallForVersion &version) {
        return printHelp(call, version.what() + std::string("\n"));
    } catch (const CLI::ValidationError &fault) {
        return wrongUse(call, fault.what()); // our own words (option_faults.h)
    } catch (const CLI::ExtrasError &) {
        return wrongUse(call, "unknown argument '" + app->remaining().front() + "'");
    } catch (const CLI::ParseError &) {
        return wrongUse(call, "the arguments can't be read");
    }
    return std::nullopt;
}

int wrongUse(const CommandCall &call, const std::string &message)
{
    tell(call.name + ": " + message + "\nTry '" + call.name + " --help'.\n");
    return WrongUse;
}

} // namespace ORR::Companion
