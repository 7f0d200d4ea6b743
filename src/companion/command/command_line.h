#pragma once

#include "companion/command/subcommand.h"
#include "companion/command/value_checks.h"

#include <QStringList>
#include <QtGlobal>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace ORR::Companion {

// The command line of a subcommand: a description, to which the subcommand adds its options, each
// bound to a variable that must live as long; its help; and the reading of the arguments. The
// library that does the reading is known to no other file than this one's: it is all templates and
// costs whoever includes it half a minute.
class CommandLine
{
public:
    // `examples` end the help: lines of calls that work.
    CommandLine(const CommandCall &call, const std::string &sentence, const std::string &examples);
    ~CommandLine();
    CommandLine(const CommandLine &) = delete;
    CommandLine &operator=(const CommandLine &) = delete;

    // How an option looks in the help, and what its value has to be.
    struct Option
    {
        const char *names; // "-K" or "-h,--help"; without dashes for what stands without a name
        const char *sentence;
        const char *type = ""; // a word for the value
        ValueCheck check = {};
    };
    void add(const Option &option, std::string *value);
    void add(const Option &option, std::vector<std::string> *values);
    void add(const Option &option, int *value);
    void add(const Option &option, qint64 *value);
    void add(const Option &option, double *value);
    void add(const Option &option, std::optional<double> *value);
    void addFlag(const Option &option, bool *value);
    // One that prints a line instead of the work.
    void addVersion(const Option &option, const std::string &line);

    // Says something else of an option that was added.
    void describe(const char *name, const char *sentence);
    // The name in the line of use.
    void setName(const std::string &name);
    // A help that fits a screen although there are many options: it leaves out itself, and what the
    // line of use says already.
    void keepHelpShort();

    // Reads the arguments into what the options are bound to. Nothing if the work can begin;
    // otherwise the status to end with: help was asked for and printed, or the use is wrong, which
    // was told, or the call asks for a description alone.
    std::optional<int> read();

private:
    template <typename Value>
    void addBound(const Option &option, Value *value);
    CommandDescription described() const;

    const CommandCall &call;
    std::unique_ptr<CLI::App> app;
    std::map<const CLI::Option *, QStringList> words; // all that a value may be
};

// Tells on standard error that the use is wrong and what to do, and gives the status for that.
int wrongUse(const CommandCall &call, const std::string &message);

} // namespace ORR::Companion
