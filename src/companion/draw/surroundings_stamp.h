#pragma once

#include <QByteArray>

namespace ORR::Companion {

// A hash of what makes a drawing beside its input and its options: the fonts and their
// configuration, as fontconfig tells their files, this program, and the templates of
// its installation.
QByteArray surroundingsStamp();

} // namespace ORR::Companion
