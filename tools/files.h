#pragma once

#include <QByteArray>
#include <QString>

// How the programs that write files from tables write them.
namespace ORR::Docs {

// Writes a file and the folders on its way; one that says the same already stays as it is. False if
// that is not possible, which has been told.
bool writeFile(const QString &path, const QByteArray &bytes);

// All of a file; nothing if it can't be read, which has been told.
QByteArray readFile(const QString &path);

} // namespace ORR::Docs
