#pragma once

namespace ORR::Graph {

// Gives the file behind the descriptor `to` what the file behind `from` has: owner, group,
// permissions and access list, and as far as the system lets it the user's own attributes and the
// security label. Bits that make a program run as another user are left out, as writing to a file
// takes them away too. False if one of the first four can't be kept.
bool keepFileAttributes(int from, int to);

} // namespace ORR::Graph
