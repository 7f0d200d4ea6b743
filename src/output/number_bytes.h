#pragma once

#include <QByteArray>

namespace ORR::Graph {

// The numbers of a text format in decimal. Doubles come out as `numberText` writes them, at a
// fraction of its cost: a drawing consists of little else.

// Room enough for any number.
constexpr int longestNumber = 16;

// Writes the number to `out`, which has to have room for the longest one, and gives the end of it.
char *writeNumber(char *out, int value);
char *writeNumber(char *out, double value);

void appendNumber(QByteArray &bytes, double value);

} // namespace ORR::Graph
