#pragma once

#include <QByteArray>

namespace ORR::Companion {

// The name of a C++ symbol without its parameters, the arguments of its templates and what it
// returns, so that it can be read in a small place: "std::vector<int, A>::end() const" is
// "std::vector::end". "vtable for" and the like stay, and what is no such name. Of a mangled one
// it is that, too, if nothing but names is in it.
QByteArray shortSymbol(const QByteArray &symbol);

} // namespace ORR::Companion
