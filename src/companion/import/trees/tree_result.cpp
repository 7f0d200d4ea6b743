#include "companion/import/trees/tree_result.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// Of a thing whose sum went beyond double it is the largest one, and the whole then goes beyond.
double weightOfTree(const WeightTree &tree)
{
    double sum = 0;
    for (WeightTree::Item item = 0; item < tree.size(); ++item) {
        const double weight = tree.ownWeight(item);
        sum += weight < std::numeric_limits<double>::max()
            ? weight
            : std::numeric_limits<double>::infinity();
    }
    return sum;
}

} // namespace

ImportResult treeResult(WeightTree tree, TreeMeaning meaning,
                        const std::vector<ImportSource> &sources, const QString &nothing)
{
    for (const ImportSource &source : sources) {
        if (!source.fault().empty())
            return {.fault = {{{.source = source.name()}, QString::fromStdString(source.fault())}}};
    }
    const double whole = weightOfTree(tree);
    if (!(whole > 0) || !std::isfinite(whole)) {
        const std::string name = sources.empty() ? std::string() : sources.front().name();
        return {.fault = {
                    {{.source = name},
                     whole > 0 ? u"its sizes add up to more than a number can hold"_s : nothing}}};
    }
    return {.picture = std::make_unique<TreePicture>(std::move(tree), std::move(meaning))};
}

int KindNames::of(QByteArrayView word)
{
    const QByteArray key = word.toByteArray();
    const auto known = numbers.constFind(key);
    if (known != numbers.constEnd())
        return *known;
    const int made = int(names.size());
    numbers.insert(key, made);
    names.append(QString::fromUtf8(word));
    return made;
}

QStringList KindNames::rankIn(WeightTree *tree) const
{
    QList<double> weights(names.size(), 0);
    for (WeightTree::Item item = 0; item < tree->size(); ++item) {
        if (tree->kind(item) >= 0)
            weights[tree->kind(item)] += tree->ownWeight(item);
    }
    QList<int> order(names.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&](int a, int b) {
        return weights[a] != weights[b] ? weights[a] > weights[b] : names[a] < names[b];
    });
    QList<int> rank(names.size());
    QStringList ranked;
    for (const int kind : std::as_const(order)) {
        rank[kind] = int(ranked.size());
        ranked.append(names[kind]);
    }
    for (WeightTree::Item item = 0; item < tree->size(); ++item) {
        if (tree->kind(item) >= 0)
            tree->setKind(item, rank[tree->kind(item)]);
    }
    return ranked;
}

} // namespace ORR::Companion
