#pragma once

#include <QByteArray>
#include <QString>

namespace ORR::Graph {

// Writes a whole file, in place of what stood there. False if it can't be opened or if not every
// byte arrived: a full disk shows only when the last ones are flushed.
bool writeOutputFile(const QString &fileName, const QByteArray &bytes);

} // namespace ORR::Graph
