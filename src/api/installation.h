#pragma once

#include <string>

// Where the library lies, and what was installed or built beside it. All of it is found from the
// library's own file, so that an installation may be moved.
namespace ORR::Api {

// The program that draws.
std::string workerProgram();

// The folder of the installation's data, which holds `conf`.
std::string homeDirectory();

} // namespace ORR::Api
