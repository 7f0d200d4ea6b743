#include "companion/import/traces/trace_tree.h"

#include <QHash>

#include <algorithm>
#include <utility>

namespace ORR::Companion {

TraceTree::TraceTree(QList<TraceSpan> found)
    : all(std::move(found)), above(all.size(), -1), below(all.size()), shapes(all.size(), 0)
{
    findParents();
    QList<int> open(first.rbegin(), first.rend());
    while (!open.isEmpty()) {
        const int span = open.takeLast();
        order.append(span);
        for (auto child = below[span].crbegin(); child != below[span].crend(); ++child)
            open.append(*child);
    }
    findShapes();
}

void TraceTree::findParents()
{
    QHash<std::pair<QByteArray, QByteArray>, int> known;
    for (int i = 0; i < all.size(); ++i) {
        const std::pair<QByteArray, QByteArray> key(all[i].trace, all[i].id);
        if (!known.contains(key)) // a client and its server may share one
            known.insert(key, i);
    }
    for (int i = 0; i < all.size(); ++i) {
        const int parent =
            all[i].parent.isEmpty() ? -1 : known.value({all[i].trace, all[i].parent}, -1);
        above[i] = parent == i ? -1 : parent;
        (above[i] < 0 ? first : below[above[i]]).append(i);
    }
    const auto isEarlier = [this](int a, int b) { return all[a].start < all[b].start; };
    std::stable_sort(first.begin(), first.end(), isEarlier);
    for (QList<int> &children : below)
        std::stable_sort(children.begin(), children.end(), isEarlier);
}

void TraceTree::findShapes()
{
    QHash<QList<QByteArray>, int> known;
    for (auto span = order.crbegin(); span != order.crend(); ++span) {
        const TraceSpan &one = all[*span];
        QList<QByteArray> shape{one.service.toUtf8(), one.name.toUtf8(),
                                QByteArray::number(2 * one.kind + (one.hasFailed ? 1 : 0))};
        for (const int child : std::as_const(below[*span]))
            shape += QByteArray::number(shapes[child]);
        const auto seen = known.constFind(shape);
        shapes[*span] = seen == known.constEnd() ? int(known.size()) : *seen;
        if (seen == known.constEnd())
            known.insert(shape, shapes[*span]);
    }
}

bool TraceTree::isCallSide(int span) const
{
    const bool asks = all[span].kind == TraceSpan::Client || all[span].kind == TraceSpan::Producer;
    const auto isElsewhere = [&](int child) { return all[child].service != all[span].service; };
    return asks && !below[span].isEmpty() && above[span] >= 0
        && std::all_of(below[span].begin(), below[span].end(), isElsewhere);
}

// Those below may have run at the same time.
qint64 TraceTree::ownTime(int span) const
{
    const qint64 start = all[span].start;
    const qint64 end = start + all[span].duration;
    qint64 waited = 0;
    qint64 reached = start;
    for (const int child : below[span]) {
        const qint64 from = std::max(reached, all[child].start);
        const qint64 to = std::min(end, all[child].start + all[child].duration);
        waited += std::max<qint64>(0, to - from);
        reached = std::max(reached, to);
    }
    return std::max<qint64>(0, all[span].duration - waited);
}

} // namespace ORR::Companion
