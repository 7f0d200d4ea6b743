#pragma once

#include "output/output.h"

#include <QByteArrayList>
#include <QMap>
#include <QString>

namespace ORR::Graph {

// Writes the parts, by their names and in pieces, as a zip file, in the order of the names. The
// same parts give the same bytes: every time stamp is that of the first day a zip file knows. Empty
// on success, otherwise a message for the user.
QString saveVisioPackage(const OutputTarget &target, const QMap<QString, QByteArrayList> &parts);

} // namespace ORR::Graph
