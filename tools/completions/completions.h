#pragma once

#include "tools/commands/commands.h"

// What shells take to complete a half line. Each text is for one program: `commands` are it and, if
// it has any, its subcommands behind it.
namespace ORR::Docs {

QByteArray bashCompletions(const QList<Command> &commands);
QByteArray zshCompletions(const QList<Command> &commands);
QByteArray fishCompletions(const QList<Command> &commands);

// Of all commands a program and its subcommands.
QList<Command> commandsOf(const QString &program, const QList<Command> &all);

// The last word of the name: "check" of "orr check".
QString ownName(const Command &command);

// A text between single quotes, as bash and zsh take it.
QString singleQuoted(const QString &text);

} // namespace ORR::Docs
