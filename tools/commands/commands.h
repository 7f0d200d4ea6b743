#pragma once

#include "companion/command/command_description.h"

#include <QList>
#include <QString>

// All commands in words, from where their helps come from.
namespace ORR::Docs {

using Companion::CommandDescription;

struct Command
{
    QString name; // as it is called: "orrlayout", "orr", "orr check"
    QString summary; // what it does, without a full stop
    CommandDescription line;
};

// `orrlayout`, `orr` and its subcommands. A QCoreApplication has to be there.
QList<Command> commands();

// The options and arguments that a usage text of the toolkit's parser tells; a description stands
// above them.
CommandDescription readUsage(const QString &usage);

} // namespace ORR::Docs
