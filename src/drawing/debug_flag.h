#pragma once

#include <QString>

namespace ORR::Drawing {

// Whether a debug flag is on: the environment holds DEBUG_<GROUP>_<KEYWORD>, both in upper case,
// with any value but one of the words that stand for no ("FALSE", "OFF", "NONE", in any case).
bool debugFlag(const QString &group, const QString &keyword);

} // namespace ORR::Drawing
