#pragma once

#include <QStringList>

namespace ORR::Driver {

// The command line, from the program's name on, without the arguments that every program of the
// toolkit takes, such as "-platform offscreen". Callers may give them as ever; they have no effect,
// since a drawing is the same on every platform and in every style. One that lacks its value stays,
// to be told as unknown.
QStringList withoutToolkitArguments(const QStringList &arguments);

} // namespace ORR::Driver
