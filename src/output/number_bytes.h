#pragma once

#include <QByteArray>

namespace ORR::Graph {

// The numbers of a text format in decimal, appended to bytes. Doubles come out as `numberText`
// writes them, at a fraction of its cost: a drawing consists of little else.
void appendNumber(QByteArray &bytes, int value);
void appendNumber(QByteArray &bytes, double value);

} // namespace ORR::Graph
