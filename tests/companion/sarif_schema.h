#pragma once

#include <QByteArray>

// What the published schema of SARIF 2.1.0 says against a log, by a validator of other hands;
// "valid\n" if nothing.
QByteArray sarifFaults(const QByteArray &log);
