#pragma once

namespace ORR::Drawing {

// True if so many more files can be opened.
bool canOpenFiles(int count);

} // namespace ORR::Drawing
