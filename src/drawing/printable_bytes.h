#pragma once

#include <cstddef>

namespace ORR::Drawing {

// So many bytes at most are written for one.
inline constexpr std::size_t longestPrintable = 4;

// What `Graph::messageText` does, for the bytes of a text in UTF-8 that may be cut off or none at
// all: a byte that belongs to no character is written out as a control character is. `to` has room
// for `longestPrintable` times the length. Gives the number of bytes written there. A handler of a
// signal may call it.
std::size_t writePrintable(const char *text, std::size_t length, char *to);

} // namespace ORR::Drawing
