#pragma once

#include "driver/command_line.h"
#include "driver/standard_streams.h"

#include <QString>

namespace ORR::Driver {

// One run: reads one graph, lets the replay or one layout engine draw it on the device of the
// chosen format, and copies the file to standard output if no output file was named. Failures are
// written to standard error.
//
// homeDirectory: the root of the installation, or empty. Returns the exit status: 0, or 1 for any
// failure. A failed run that was to write to standard output leaves its temporary file behind.
int runDriver(const CommandLine &commandLine, const QString &homeDirectory,
              const StandardStreams &streams);

} // namespace ORR::Driver
