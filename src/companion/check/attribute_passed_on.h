#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

namespace ORR::Companion {

// The attributes that no engine reads and that producers give all the same: what they say is meant
// for whoever reads the graph or shows it, as a page or an editor does. They are no findings,
// whatever they are given to.
inline constexpr std::string_view passedOnAttributes[] = {
    "URL", "class", "column", "comment", "file",    "href",
    "id",  "line",  "target", "title",   "tooltip", "url",
};
static_assert(std::is_sorted(std::begin(passedOnAttributes), std::end(passedOnAttributes)));

} // namespace ORR::Companion
