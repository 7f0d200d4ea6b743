#pragma once

#include "companion/import/import_format.h"
#include "companion/produce/tree_picture.h"

#include <vector>

namespace ORR::Companion {

// The picture of a tree that was read from sources. A fault if one of them could not be read to its
// end, and `nothing` (a sentence without a full stop) if nothing in the tree has a weight.
ImportResult weighedPicture(WeightTree tree, const TreeMeaning &meaning,
                            const std::vector<ImportSource> &sources, const QString &nothing);

} // namespace ORR::Companion
