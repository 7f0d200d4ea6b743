#pragma once

#include "companion/command/subcommand.h"

#include <QByteArray>

#include <string>

// What subcommands share that make a single drawing in their own process.
namespace ORR::Companion {

// Starts what measures and paints texts; `Drawing::prepareToolkit` came before. False, which has
// been told, if there is no font.
bool startDrawing(const CommandCall &call);

// Writes a file, whole or not at all, or with "-" to standard output. The status to end with; what
// went wrong has been told.
int writeDrawn(const CommandCall &call, const std::string &output, const QByteArray &bytes);

} // namespace ORR::Companion
