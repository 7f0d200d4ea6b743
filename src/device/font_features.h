#pragma once

#include "device/font_table.h"

#include <vector>

namespace ORR::Graph {

// For each lookup of a table GSUB or GPOS, whether a text may be set with it that asks for no
// feature by itself. What only features use that are off until somebody wants them (small capitals,
// old-style digits) does not count, nor does what only other lookups call.
std::vector<bool> lookupsInUse(FontTable &table);

} // namespace ORR::Graph
