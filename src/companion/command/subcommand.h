#pragma once

#include <string>
#include <vector>

namespace ORR::Companion {

struct CommandDescription;

// The exit statuses of all subcommands.
enum Status : int { AllWell = 0, Failed = 1, WrongUse = 2 };

// One of them in words.
struct StatusMeaning
{
    Status status;
    const char *meaning;
};
inline constexpr StatusMeaning statusMeanings[] = {
    {AllWell, "All is well."},
    {Failed, "Something failed or was found."},
    {WrongUse, "Options make no sense, or files can't be read or written."},
};

// What a subcommand is called with.
struct CommandCall
{
    std::string name; // of the program and the subcommand, as messages have it: "orr check"
    std::vector<std::string> arguments; // behind the subcommand; bytes, in no particular encoding
    bool hasInput = true; // whether there is a standard input
    bool hasOutput = true; // whether there is a standard output
    // If there is one, nothing is read or done: it becomes what the command line would take.
    CommandDescription *description = nullptr;
};

// One subcommand. Its function reads the arguments, does the work and gives the exit status.
struct Subcommand
{
    const char *name;
    const char *sentence; // what it does, for the list of them
    int (*run)(const CommandCall &call);
};

} // namespace ORR::Companion
