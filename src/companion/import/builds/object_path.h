#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace ORR::Companion {

// The path of what a build made, without what says nothing to a reader: CMake's "CMakeFiles" is
// left out, and "x.dir" behind it is "x", the target. "src/CMakeFiles/x.dir/a.cpp.o" is
// "src/x/a.cpp.o".
QByteArray readableOutput(QByteArrayView path);

} // namespace ORR::Companion
