#pragma once

#include "companion/produce/folded_dependencies.h"

namespace ORR::Companion {

// Finds which parts need each other in circles, and says so of them and of their edges, whose kinds
// all come of it.
void findCycles(FoldedDependencies *folded);

} // namespace ORR::Companion
