#pragma once

#include <QString>

namespace ORR::Drawing {

// The maker's registered name.
inline constexpr char registeredName[] = "Halvane Labs, Inc.";

// Gives the application its identity, sends its settings where HALVANEREDIRECTPATH, the setting
// "redirectDir" or HALVANEREDIRECTDIR say, in this order, prepares the environment of child
// processes and turns off the debug messages of a chatty logging category. To be called once the
// application object stands.
void startApplication(const QString &name);

// The log file for a name.
QString logFileName(const QString &logDirectory, const QString &name);

} // namespace ORR::Drawing
