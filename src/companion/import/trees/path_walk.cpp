#include "companion/import/trees/path_walk.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cstring>

namespace ORR::Companion {

namespace {

// How many bytes both begin with, eight at a time.
qsizetype sharedLength(QByteArrayView a, QByteArrayView b)
{
    const qsizetype most = std::min(a.size(), b.size());
    qsizetype shared = 0;
    for (; most - shared >= 8; shared += 8) {
        quint64 first = 0;
        quint64 second = 0;
        std::memcpy(&first, a.data() + shared, 8);
        std::memcpy(&second, b.data() + shared, 8);
        if (first != second)
            return shared + std::countr_zero(qFromLittleEndian(first ^ second)) / 8;
    }
    while (shared < most && a[shared] == b[shared])
        ++shared;
    return shared;
}

} // namespace

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
    const qsizetype shared = sharedLength(path, {last.data(), qsizetype(last.size())});
    const auto isShared = [&](qsizetype end) {
        return end < shared || (end == shared && (end == path.size() || path[end] == separator));
    };
    while (!steps.empty() && !isShared(steps.back().end))
        steps.pop_back();
    last.resize(size_t(shared));
    last.append(path.data() + shared, size_t(path.size() - shared));

    WeightTree::Item item = steps.empty() ? WeightTree::root : steps.back().item;
    qsizetype start = steps.empty() ? 0 : steps.back().end + 1;
    while (start < path.size()) {
        qsizetype end = path.indexOf(separator, start);
        if (end < 0)
            end = path.size();
        item = below(item, path.sliced(start, end - start));
        steps.push_back({.end = end, .item = item});
        start = end + 1;
    }
    return item;
}

} // namespace ORR::Companion
