#pragma once

#include "companion/produce/tree_picture.h"

#include <QString>

// Numbers as readers of a drawing want them: short, with their unit, whatever the locale.
namespace ORR::Companion {

// "1,234", "1.2 MB", "340 ms".
QString weightWords(double weight, TreeMeaning::Unit unit);

// The same with what is counted: "1,234 lines", but "1.2 MB" and "340 ms" as they are.
QString weightWithName(double weight, const TreeMeaning &meaning);

// A part of a whole: "12.3 %"; of tiny ones "<0.1 %".
QString percentWords(double share);

// Three significant digits, without an exponent where people write none: "0.0123", "12.3", "1,230".
QString shortNumber(double value);

} // namespace ORR::Companion
