#include "companion/command/command_line.h"

#include "companion/command/argument_faults.h"
#include "companion/command/command_description.h"
#include "companion/command/streams.h"

#include <CLI/CLI.hpp>

#include <utility>

using namespace Qt::StringLiterals;

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

QStringList namesOf(const CLI::Option &option)
{
    QStringList names;
    for (const std::string &name : option.get_snames())
        names += u'-' + QString::fromStdString(name);
    for (const std::string &name : option.get_lnames())
        names += "--"_L1 + QString::fromStdString(name);
    return names;
}

// What ends the help: paragraphs, of which the last one is the list of examples.
void describeEnd(const QString &end, CommandDescription *description)
{
    constexpr QLatin1StringView heading = "Examples:\n"_L1;
    description->notes = end.split(u"\n\n"_s, Qt::SkipEmptyParts);
    if (description->notes.isEmpty() || !description->notes.constLast().startsWith(heading))
        return;
    for (const QString &line : description->notes.takeLast().sliced(heading.size()).split(u'\n'))
        description->examples += line.trimmed();
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

template <typename Value>
void CommandLine::addBound(const Option &option, Value *value)
{
    CLI::Option *const added = app->add_option(option.names, *value, option.sentence);
    added->type_name(option.type);
    words[added] = option.check.words;
    if (option.check.fault) {
        const auto fault = [check = option.check.fault](const std::string &given) {
            return check(given).toStdString();
        };
        added->check(CLI::Validator(fault, std::string())); // the help has what the values are
    }
}

void CommandLine::add(const Option &option, std::string *value)
{
    addBound(option, value);
}

void CommandLine::add(const Option &option, std::vector<std::string> *values)
{
    addBound(option, values);
}

void CommandLine::add(const Option &option, int *value)
{
    addBound(option, value);
}

void CommandLine::add(const Option &option, qint64 *value)
{
    addBound(option, value);
}

void CommandLine::add(const Option &option, double *value)
{
    addBound(option, value);
}

void CommandLine::add(const Option &option, std::optional<double> *value)
{
    addBound(option, value);
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

CommandDescription CommandLine::described() const
{
    CommandDescription description;
    description.sentence = QString::fromStdString(app->get_description());
    for (const CLI::Option *option : std::as_const(*app).get_options()) {
        const bool isArgument = !option->nonpositional();
        const bool isFlag = option->get_items_expected_max() == 0;
        const auto known = words.find(option);
        (isArgument ? description.arguments : description.options)
            .append({namesOf(*option), QString::fromStdString(option->get_description()),
                     QString::fromStdString(isArgument   ? option->get_single_name()
                                                : isFlag ? std::string()
                                                         : option->get_type_name()),
                     known == words.end() ? QStringList() : known->second,
                     option->get_items_expected_max() > 1});
    }
    describeEnd(QString::fromStdString(app->get_footer()), &description);
    return description;
}

std::optional<int> CommandLine::read()
{
    if (call.description) {
        *call.description = described();
        return AllWell;
    }
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
