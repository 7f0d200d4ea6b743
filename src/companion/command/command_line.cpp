#include "companion/command/command_line.h"

#include "companion/command/argument_faults.h"
#include "companion/command/streams.h"

#include <CLI/CLI.hpp>

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

// The line of use names what stands without a name of an option.
class ShortHelp : public CLI::Formatter
{
public:
    std::string make_positionals(const CLI::App * /*app*/) const override { return {}; }

    // Without the empty line above it.
    std::string make_group(std::string group, bool isPositional,
                           std::vector<const CLI::Option *> options) const override
    {
        return CLI::Formatter::make_group(std::move(group), isPositional, std::move(options))
            .substr(1);
    }
};

template <typename Value>
void addTo(CLI::App *app, const CommandLine::Option &option, Value *value)
{
    CLI::Option *const added = app->add_option(option.names, *value, option.sentence);
    added->type_name(option.type);
    if (option.check) {
        const auto fault = [check = option.check](const std::string &given) {
            return check(given).toStdString();
        };
        added->check(CLI::Validator(fault, std::string())); // the help has what the values are
    }
}

} // namespace

CommandLine::CommandLine(const CommandCall &commandCall, const std::string &sentence,
                         const std::string &examples)
    : call(commandCall), app(std::make_unique<CLI::App>(sentence, commandCall.name))
{
    app->get_formatter()->column_width(columnOfSentences);
    app->set_help_flag("-h,--help", "Print this help");
    app->footer(examples);
}

CommandLine::~CommandLine() = default;

void CommandLine::add(const Option &option, std::string *value)
{
    addTo(app.get(), option, value);
}

void CommandLine::add(const Option &option, std::vector<std::string> *values)
{
    addTo(app.get(), option, values);
}

void CommandLine::add(const Option &option, int *value)
{
    addTo(app.get(), option, value);
}

void CommandLine::add(const Option &option, qint64 *value)
{
    addTo(app.get(), option, value);
}

void CommandLine::add(const Option &option, double *value)
{
    addTo(app.get(), option, value);
}

void CommandLine::add(const Option &option, std::optional<double> *value)
{
    addTo(app.get(), option, value);
}

void CommandLine::addFlag(const Option &option, bool *value)
{
    app->add_flag(option.names, *value, option.sentence);
}

void CommandLine::addVersion(const Option &option, const std::string &line)
{
    app->set_version_flag(option.names, line, option.sentence);
}

void CommandLine::describe(const char *name, const char *sentence)
{
    app->get_option(name)->description(sentence);
}

void CommandLine::setName(const std::string &name)
{
    app->name(name);
}

void CommandLine::keepHelpShort()
{
    const auto help = std::make_shared<ShortHelp>();
    help->column_width(columnOfSentences);
    app->formatter(help);
    app->get_help_ptr()->group(std::string()); // whoever reads it has found it
}

std::optional<int> CommandLine::read()
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
        return wrongUse(call, fault.what()); // our own words (value_checks.h)
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
