#pragma once

#include "companion/command/subcommand.h"

#include <QByteArray>

#include <optional>
#include <string>

// What subcommands read and write.
namespace ORR::Companion {

// Prints a message on standard error. What of it a terminal would obey is written out, but for line
// feeds.
void tell(const std::string &message);

// Writes to standard output. False, which has been told, if not all bytes arrived.
bool print(const CommandCall &call, const QByteArray &text);

// Whether standard output is a terminal; whether it is one that shows colours, which the user
// may refuse by the variable NO_COLOR.
bool printsToTerminal();
bool printsColors();

// What was read, or why nothing could be.
struct ReadInput
{
    std::optional<QByteArray> bytes;
    std::string fault; // as the system words it
};

// A whole file, or with "-" standard input; of one that is longer than what the reader takes, at
// least the beginning that shows this.
ReadInput readInput(const CommandCall &call, const std::string &name);

} // namespace ORR::Companion
