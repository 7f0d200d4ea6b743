#pragma once

#include <QByteArray>

namespace ORR::Companion {

// Removes what a process that was killed left beside its output: temporary files that are there and
// that nobody has open for writing. Such a file of somebody else, who is just about to give it its
// name, is left alone; that takes a tenth of a second of waiting if there are any.
void removeAbandonedFiles(const QByteArray &output);

} // namespace ORR::Companion
