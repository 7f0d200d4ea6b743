#include "companion/import/trees/path_walk.h"

#include <algorithm>

namespace ORR::Companion {

WeightTree::Item PathWalk::below(WeightTree::Item item, QByteArrayView part)
{
    if (part.isEmpty())
        return item;
    if (parts == Parts::Folders && part == ".")
        return item;
    if (parts == Parts::Folders && part == "..")
        return std::max(WeightTree::root, tree->parent(item));
    return tree->child(item, part);
}

WeightTree::Item PathWalk::at(QByteArrayView path)
{
    const qsizetype shared =
        std::mismatch(path.begin(), path.end(), last.cbegin(), last.cend()).first - path.begin();
    const auto isShared = [&](qsizetype end) {
        return end < shared || (end == shared && (end == path.size() || path[end] == separator));
    };
    while (!steps.isEmpty() && !isShared(steps.last().end))
        steps.removeLast();
    last.truncate(shared);
    last += path.sliced(shared);

    WeightTree::Item item = steps.isEmpty() ? WeightTree::root : steps.last().item;
    qsizetype start = steps.isEmpty() ? 0 : steps.last().end + 1;
    while (start < path.size()) {
        qsizetype end = path.indexOf(separator, start);
        if (end < 0)
            end = path.size();
        item = below(item, path.sliced(start, end - start));
        steps.append({.end = end, .item = item});
        start = end + 1;
    }
    return item;
}

} // namespace ORR::Companion
