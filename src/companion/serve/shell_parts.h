#pragma once

#include <string_view>

// What the page of the server is put together from, as the build makes it of the files in web/.
namespace ORR::Companion {

extern const std::string_view shellTemplate; // with places such as {{title}}
extern const std::string_view shellTheme; // the style sheet
extern const std::string_view shellCode; // the modules, as one script

} // namespace ORR::Companion
