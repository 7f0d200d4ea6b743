#pragma once

namespace ORR::Companion {

// Starts what measures and paints texts, unless this process has it already. False if there is no
// font, which the first call tells on standard error.
bool startsDrawingToolkit();

} // namespace ORR::Companion
