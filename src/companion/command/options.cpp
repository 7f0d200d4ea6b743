#include "companion/command/options.h"

#include "companion/command/streams.h"
#include "companion/findings/nearest_word.h"

namespace ORR::Companion {

namespace {

constexpr size_t columnOfSentences = 26;

QStringList optionNames(const CLI::App &app)
{
    QStringList names;
    for (const CLI::Option *option : app.get_options()) {
        for (const std::string &name : option->get_lnames())
            names += QStringLiteral("--") + QString::fromStdString(name);
    }
    return names;
}

// Of an argument that no option takes.
std::string unknownArgument(const CLI::App &app)
{
    const std::vector<std::string> unknown = app.remaining();
    const std::string argument = unknown.empty() ? std::string() : unknown.front();
    // Without its value, which may be long.
    const std::string option = argument.substr(0, argument.find('='));
    const QString suggestion = didYouMean(QString::fromStdString(option), optionNames(app));
    return "there is no option '" + option + "'"
        + (suggestion.isEmpty() ? std::string() : "; " + suggestion.toStdString());
}

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
    try {
        app->parse(guarded(call.arguments));
    } catch (const CLI::CallForHelp &) {
        return printHelp(call, app->help());
    } catch (const CLI::CallForVersion &version) {
        return printHelp(call, version.what() + std::string("\n"));
    } catch (const CLI::ExtrasError &) {
        return wrongUse(call, unknownArgument(*app));
    } catch (const CLI::ParseError &fault) {
        return wrongUse(call, fault.what());
    }
    return std::nullopt;
}

int wrongUse(const CommandCall &call, const std::string &message)
{
    tell(call.name + ": " + message + "\nTry '" + call.name + " --help'.\n");
    return WrongUse;
}

} // namespace ORR::Companion
