#include "companion/command/argument_faults.h"

#include "companion/findings/nearest_word.h"

#include <CLI/CLI.hpp>

#include <set>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

QStringList optionNames(const CLI::App &app)
{
    QStringList names;
    for (const CLI::Option *option : app.get_options()) {
        for (const std::string &name : option->get_lnames())
            names += "--"_L1 + QString::fromStdString(name);
    }
    return names;
}

QString quotedName(const std::string &text)
{
    return u'\'' + QString::fromStdString(text) + u'\'';
}

// Goes through the arguments in the way of the parser.
class ArgumentWalk
{
public:
    ArgumentWalk(const CLI::App &commandLine, const std::vector<std::string> &given)
        : app(commandLine), arguments(given)
    {
    }

    ArgumentFaults walk();

private:
    void readLong(const std::string &argument);
    void readShort(const std::string &argument);
    void readValue(const CLI::Option *option, const std::string &name, bool isAttached);
    void addUnknown(const std::string &name);
    void add(const QString &sentence)
    {
        if (faults.first.isEmpty())
            faults.first = sentence;
    }
    bool takesValue(const CLI::Option *option) const
    {
        return option->get_items_expected_max() != 0;
    }

    const CLI::App &app;
    const std::vector<std::string> &arguments;
    size_t next = 0;
    std::set<const CLI::Option *> valued; // the options that have their values
    ArgumentFaults faults;
};

ArgumentFaults ArgumentWalk::walk()
{
    while (next < arguments.size()) {
        const std::string &argument = arguments[next++];
        if (argument == "--")
            break;
        if (argument.starts_with("--"))
            readLong(argument);
        else if (argument.size() > 1 && argument.front() == '-')
            readShort(argument);
    }
    return faults;
}

void ArgumentWalk::readLong(const std::string &argument)
{
    // Without its value, which may be long.
    const size_t equals = argument.find('=');
    const std::string name = argument.substr(0, equals);
    const CLI::Option *option = app.get_option_no_throw(name);
    const bool hasValue = equals != std::string::npos;
    if (!option)
        addUnknown(name);
    else if (hasValue && equals + 1 == argument.size() && takesValue(option))
        add(u"option %1 needs a value"_s.arg(
            quotedName(name))); // the parser would take the next one
    else if (takesValue(option))
        readValue(option, name, hasValue);
    else if (hasValue)
        add(u"option %1 takes no value"_s.arg(quotedName(name)));
    else if (option == app.get_help_ptr())
        faults.asksForHelp = true;
}

// Flags may stand together, and the last of them may be an option with its value.
void ArgumentWalk::readShort(const std::string &argument)
{
    for (size_t i = 1; i < argument.size(); ++i) {
        const std::string name{'-', argument[i]};
        const bool isLast = i + 1 == argument.size();
        const CLI::Option *option = app.get_option_no_throw(name);
        if (!option)
            return addUnknown(i == 1 ? argument.substr(0, argument.find('=')) : name);
        if (takesValue(option))
            return readValue(option, name, !isLast);
        if (!isLast && argument[i + 1] == '=')
            return add(u"option %1 takes no value"_s.arg(quotedName(name)));
        if (option == app.get_help_ptr())
            faults.asksForHelp = true;
    }
}

void ArgumentWalk::readValue(const CLI::Option *option, const std::string &name, bool isAttached)
{
    if (!valued.insert(option).second)
        add(u"option %1 is given twice"_s.arg(quotedName(name)));
    if (!isAttached && next++ >= arguments.size())
        add(u"option %1 needs a value"_s.arg(quotedName(name)));
}

void ArgumentWalk::addUnknown(const std::string &name)
{
    const QString suggestion = didYouMean(QString::fromStdString(name), optionNames(app));
    add(u"unknown option "_s + quotedName(name) + (suggestion.isEmpty() ? QString() : u"; "_s)
        + suggestion);
}

} // namespace

ArgumentFaults argumentFaults(const CLI::App &app, const std::vector<std::string> &arguments)
{
    return ArgumentWalk(app, arguments).walk();
}

} // namespace ORR::Companion
