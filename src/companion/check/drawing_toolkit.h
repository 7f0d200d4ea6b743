#pragma once

namespace ORR::Companion {

// To be called before a graph is read that is to be drawn, any number of times: ids are found by
// hashes, whose seed is the same in every process that draws.
void prepareDrawingToolkit();

// Starts what measures and paints texts, unless this process has it already. False if there is no
// font, which the first call tells on standard error.
bool startsDrawingToolkit();

} // namespace ORR::Companion
