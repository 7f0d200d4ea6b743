#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

// The parts of a zip file by name. Ends the process, as `require` does, if it is none, if a part
// can't be unpacked or is there twice.
QMap<QString, QByteArray> packageParts(const QByteArray &package);
