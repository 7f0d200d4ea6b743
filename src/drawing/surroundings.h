#pragma once

namespace ORR::Drawing {

// Takes away, or settles, every variable of the environment by which a user, a desktop or a
// packager could tell the toolkit and the libraries below it to draw otherwise, to look elsewhere
// or to talk. To be called before any of them is asked for something.
//
// What tells which fonts there are (FONTCONFIG_FILE and its like, HOME, the XDG folders of data
// and configuration) stays: fonts are the machine's.
void shutOutSurroundings();

} // namespace ORR::Drawing
