#pragma once

#include <QString>

namespace ORR::Driver {

// The maker's registered name.
inline constexpr char registeredName[] = "Halvane Labs, Inc.";

// What the toolkit must find before the application object is made: hashes whose order is the same
// in every run, so that attributes are written in one order; the offscreen platform, unless the
// user has chosen one; silence, but for what ends the process.
//
// Whoever asks the toolkit for messages (QT_LOGGING_RULES, QT_LOGGING_CONF, QT_DEBUG_PLUGINS) gets
// them all.
void prepareToolkit();

// True if the user has asked the toolkit for messages.
bool wantsToolkitMessages();

// Gives the application its identity, sends its settings where HALVANEREDIRECTPATH, the setting
// "redirectDir" or HALVANEREDIRECTDIR say, in this order, prepares the environment of child
// processes and turns off the debug messages of a chatty logging category. To be called once the
// application object stands.
void startApplication(const QString &name);

// The log file for a name.
QString logFileName(const QString &logDirectory, const QString &name);

} // namespace ORR::Driver
