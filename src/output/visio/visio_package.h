#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace ORR::Graph {

// Writes the parts, by their names, as a zip file, in the order of the names. The same parts give
// the same bytes: every time stamp is that of the first day a zip file knows. Empty on success,
// otherwise a message for the user.
QString saveVisioPackage(const QString &fileName, const QMap<QString, QByteArray> &parts);

} // namespace ORR::Graph
