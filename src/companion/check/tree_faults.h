#pragma once

#include "companion/check/checked_text.h"

// Why a graph is none that a tree can be drawn of, and where.
namespace ORR::Companion {

// The edge that closes a cycle: the first one that a walk along the edges meets, in the order of
// the text. It begins at the nodes that no edge leads to, or at all if there are none of these.
// Null if the walk meets no cycle. Linear in the text.
const CheckedEdge *edgeOfCycle(const CheckedText &text);

// The nodes that no edge leads to, in the order of the text, two at most.
std::vector<const CheckedNode *> firstRoots(const CheckedText &text);

} // namespace ORR::Companion
