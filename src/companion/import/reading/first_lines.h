#pragma once

#include <QByteArrayView>
#include <QList>

namespace ORR::Companion {

// The first lines of a beginning, for whoever asks what an input looks like: whole ones (the last
// of a longer input may be cut), without their ends, empty ones left out, not more than a few
// dozens.
QList<QByteArrayView> firstLines(QByteArrayView beginning, char separator = '\n');

} // namespace ORR::Companion
