#pragma once

#include "tools/manual/command_pages.h"

namespace ORR::Docs {

// orrlayout-engines(7): what engines draw, and all tables of attributes. The text is empty if there
// is no prose, which is a mistake.
ManualPage enginesPage(const ManualSetting &setting);

} // namespace ORR::Docs
