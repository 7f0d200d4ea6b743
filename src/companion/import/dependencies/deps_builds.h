#pragma once

#include "companion/import/dependencies/deps_reading.h"
#include "companion/import/reading/import_source.h"
#include "companion/import/reading/json_value.h"

#include <QString>

// What the tools of a build know of files and targets.
namespace ORR::Companion {

// Which files include which, from the rules that compilers write with -MD (GNU make's syntax,
// https://www.gnu.org/software/make/manual/html_node/Rule-Syntax.html): the first file behind the
// colon includes the others, itself or by way of others. Headers of the system are left out.
void readMakeRules(const QByteArray &text, const QString &folder, DepsReading *reading);

// The same from what `ninja -t deps` writes (https://ninja-build.org/manual.html#_extra_tools).
void readNinjaDeps(ImportSource &source, DepsReading *reading);

// The same from a compile_commands.json (https://clang.llvm.org/docs/JSONCompilationDatabase.html)
// and the rules that lie beside the objects of its commands, whose folders may be below `folder`.
void readCompileCommands(const JsonDocument &document, const QString &folder, DepsReading *reading);

// Which targets need which, from the replies of CMake's file API in a folder, codemodel version 2
// (https://cmake.org/cmake/help/latest/manual/cmake-file-api.7.html).
void readCMakeReplies(const QString &folder, DepsReading *reading);

} // namespace ORR::Companion
