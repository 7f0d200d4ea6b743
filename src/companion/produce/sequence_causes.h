#pragma once

#include "companion/produce/sequence.h"

#include <QSizeF>
#include <QString>

#include <functional>

namespace ORR::Companion {

// Why the drawing of a sequence is larger than a page, as a sentence; empty if it is not.
// `measured` gives the size of the drawing of a sequence. Of those that are too wide it is asked
// for some with a part left out, to find what takes the room.
QString sequenceSizeNote(const Sequence &sequence, QSizeF size, QSizeF page,
                         const std::function<QSizeF(const Sequence &)> &measured);

} // namespace ORR::Companion
