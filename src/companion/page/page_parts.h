#pragma once

#include <string_view>

// What every page is put together from, as the build makes it of the files in web/.
namespace ORR::Companion {

extern const std::string_view pageTemplate; // with places such as {{title}}
extern const std::string_view pageTheme; // the style sheet
extern const std::string_view pageCode; // the modules, as one script

} // namespace ORR::Companion
