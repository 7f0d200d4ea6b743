#include "companion/produce/declaration_order.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace ORR::Companion {

namespace {

using Declaration = Declarations::Declaration;

// In the order in which they were given.
QList<int> mostWorth(const QList<Declaration> &all, int most)
{
    QList<int> chosen(all.size());
    std::iota(chosen.begin(), chosen.end(), 0);
    if (chosen.size() <= most)
        return chosen;
    QList<qsizetype> worth(all.size(), 0);
    for (qsizetype i = 0; i < all.size(); ++i) {
        worth[i] += all[i].members.size();
        for (const int base : all[i].bases)
            worth[base] += 5;
    }
    std::stable_sort(chosen.begin(), chosen.end(),
                     [&](int a, int b) { return worth[a] > worth[b]; });
    chosen.resize(most);
    std::sort(chosen.begin(), chosen.end());
    return chosen;
}

QList<int> orderedByFamilies(const QList<Declaration> &all, const QList<int> &chosen)
{
    QList<QList<int>> heirs(all.size());
    QList<bool> isChosen(all.size(), false);
    for (const int i : chosen)
        isChosen[i] = true;
    QList<int> roots;
    for (const int i : chosen) {
        const QList<int> &bases = all[i].bases;
        if (!bases.isEmpty() && isChosen[bases.first()])
            heirs[bases.first()].append(i);
        else
            roots.append(i);
    }
    std::stable_sort(roots.begin(), roots.end(),
                     [&](int a, int b) { return heirs[a].isEmpty() < heirs[b].isEmpty(); });
    QList<int> ordered;
    QList<bool> isDone(all.size(), false);
    // What inherits itself in a circle has no root: all of the chosen are gone through in the end.
    for (const int first : roots + chosen) {
        QList<int> waiting{first};
        while (!waiting.isEmpty()) {
            const int next = waiting.takeLast();
            if (std::exchange(isDone[next], true))
                continue;
            ordered.append(next);
            for (auto heir = heirs[next].crbegin(); heir != heirs[next].crend(); ++heir)
                waiting.append(*heir);
        }
    }
    return ordered;
}

} // namespace

QList<int> chosenDeclarations(const QList<Declaration> &all, int most)
{
    return orderedByFamilies(all, mostWorth(all, most));
}

} // namespace ORR::Companion
