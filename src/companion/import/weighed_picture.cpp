#include "companion/import/weighed_picture.h"

#include <utility>

namespace ORR::Companion {

namespace {

bool hasWeight(const WeightTree &tree)
{
    for (WeightTree::Item item = 0; item < tree.size(); ++item) {
        if (tree.ownWeight(item) > 0)
            return true;
    }
    return false;
}

} // namespace

ImportResult weighedPicture(WeightTree tree, const TreeMeaning &meaning,
                            const std::vector<ImportSource> &sources, const QString &nothing)
{
    for (const ImportSource &source : sources) {
        if (!source.fault().empty())
            return {.fault = source.faultHere(QString::fromStdString(source.fault()))};
    }
    if (!hasWeight(tree))
        return {.fault = ImportFault{{.source = sources.back().name()}, nothing}};
    return {.picture = std::make_unique<TreePicture>(std::move(tree), meaning)};
}

} // namespace ORR::Companion
