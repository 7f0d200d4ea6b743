#include "companion/produce/slot_tree.h"

#include <QHash>

#include <algorithm>
#include <limits>

namespace ORR::Companion {

namespace {

void addSaturated(double *sum, double value)
{
    *sum = std::min(std::numeric_limits<double>::max(), *sum + value);
}

} // namespace

SlotTree::SlotTree(const WeightTree &weightTree, bool ownAsChildren) : tree(weightTree)
{
    firstOwn = Slot(tree.size());
    sumUp();
    if (tree.hasShares())
        sumUpShares();
    if (ownAsChildren)
        addOwnSlots();
    findRoot();
    joinChains();
}

// The children of a tree are made after what they are in.
void SlotTree::sumUp()
{
    weights.resize(tree.size());
    members.fill(0, tree.size());
    for (Slot slot = 0; slot < tree.size(); ++slot)
        weights[slot] = tree.ownWeight(slot);
    for (Slot slot = Slot(tree.size()) - 1; slot > 0; --slot) {
        addSaturated(&weights[tree.parent(slot)], weights.at(slot));
        members[tree.parent(slot)] += weights.at(slot) > 0;
    }
}

void SlotTree::sumUpShares()
{
    shares.resize(tree.size());
    for (Slot slot = 0; slot < tree.size(); ++slot)
        shares[slot] = {tree.part(slot), tree.whole(slot)};
    for (Slot slot = Slot(tree.size()) - 1; slot > 0; --slot) {
        Share &parent = shares[tree.parent(slot)];
        addSaturated(&parent.part, shares.at(slot).part);
        addSaturated(&parent.whole, shares.at(slot).whole);
    }
}

void SlotTree::addOwnSlots()
{
    for (WeightTree::Item item = 0; item < tree.size(); ++item) {
        if (tree.ownWeight(item) <= 0 || members.at(item) == 0)
            continue;
        owners.append(item);
        weights.append(tree.ownWeight(item));
        if (!shares.isEmpty())
            shares.append({tree.part(item), tree.whole(item)});
        members.append(0);
        ++members[item];
    }
}

double SlotTree::ownWeight(Slot slot) const
{
    const WeightTree::Item item = itemOf(slot);
    const bool hasOwnSlot = !owners.isEmpty() && !isOwn(slot) && members[slot] > 0;
    return hasOwnSlot ? 0 : tree.ownWeight(item);
}

bool SlotTree::isLink(Slot slot) const
{
    return slot != top && members[slot] == 1 && tree.ownWeight(itemOf(slot)) <= 0;
}

void SlotTree::findRoot()
{
    top = -1; // so that the root of the tree may be a link, too
    Slot slot = WeightTree::root;
    while (isLink(slot)) {
        WeightTree::Item child = tree.firstChild(slot);
        while (weights.at(child) <= 0)
            child = tree.nextSibling(child);
        if (members.at(child) == 0)
            break;
        slot = child;
    }
    top = slot;
}

void SlotTree::joinChains()
{
    above.fill(-1, size());
    for (Slot slot = 1; slot < size(); ++slot) {
        const Slot parent = parentOf(slot);
        above[slot] = isLink(parent) ? above.at(parent) : parent;
    }
}

bool SlotTree::isShownAtAll(Slot slot) const
{
    return slot != top && above[slot] >= 0 && weights[slot] > 0 && !isLink(slot);
}

void SlotTree::keep(qint64 most, double least)
{
    kept.fill(false, size());
    open.fill(false, size());
    QList<qint32> left(size(), 0); // of the slots right in one, those that are not kept
    QList<Slot> slots;
    for (Slot slot = 0; slot < size(); ++slot) {
        if (!isShownAtAll(slot))
            continue;
        slots.append(slot);
        ++left[above.at(slot)];
    }
    const qsizetype sorted = std::min<qint64>(slots.size(), std::max<qint64>(most, 1));
    std::partial_sort(slots.begin(), slots.begin() + sorted, slots.end(), [this](Slot a, Slot b) {
        const double first = weights.at(a);
        const double second = weights.at(b);
        return first != second ? first > second : a < b;
    });

    // What is folded counts, too; the more is kept of one slot's members, the less.
    QHash<Slot, qint32> taken; // of one slot's members
    qsizetype best = std::min<qsizetype>(sorted, 1);
    qint64 others = 0;
    for (qsizetype i = 0; i < sorted; ++i) {
        const Slot parent = above.at(slots.at(i));
        if (i > 0 && weights.at(slots.at(i)) < least)
            break;
        const qint32 keptOfIt = ++taken[parent];
        others += (keptOfIt < left.at(parent) ? 1 : 0) - (keptOfIt > 1 ? 1 : 0);
        if (i + 1 + others <= most)
            best = i + 1;
    }
    for (qsizetype i = 0; i < best; ++i) {
        const Slot parent = above.at(slots.at(i));
        kept[slots.at(i)] = true;
        open[parent] = true;
        --left[parent];
    }
    // One alone is no others.
    for (const Slot slot : std::as_const(slots)) {
        const Slot parent = above.at(slot);
        if (!kept.at(slot) && open.at(parent) && left.at(parent) == 1)
            kept[slot] = true;
    }
}

} // namespace ORR::Companion
