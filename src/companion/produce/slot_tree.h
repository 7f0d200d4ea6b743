#pragma once

#include "companion/produce/weight_tree.h"

#include <QList>

namespace ORR::Companion {

// A tree as numbers, before anything is named: what everything weighs together, and what of it is
// kept. A slot is a thing of the tree, or the own weight of one that has others in it. Slots come
// behind those that they are in.
class SlotTree
{
public:
    using Slot = qint32;

    // ownAsChildren: whether own weights are slots.
    SlotTree(const WeightTree &weightTree, bool ownAsChildren);

    // Keeps the heaviest slots: none lighter than `least`, and as many that there are not more than
    // `most` with what the rest is folded into.
    void keep(qint64 most, double least);

    Slot size() const { return Slot(weights.size()); }
    bool isOwn(Slot slot) const { return slot >= firstOwn; }
    WeightTree::Item itemOf(Slot slot) const
    {
        return isOwn(slot) ? owners[slot - firstOwn] : slot;
    }

    double weight(Slot slot) const { return weights[slot]; }
    double part(Slot slot) const { return shares.isEmpty() ? 0 : shares[slot].part; }
    double whole(Slot slot) const { return shares.isEmpty() ? 0 : shares[slot].whole; }
    // What is drawn as the slot's own.
    double ownWeight(Slot slot) const;

    // The first slot that is more than the way to a single other one.
    Slot shownRoot() const { return top; }
    // Whether it weighs something, lies below that root and is not a link of a chain but its end.
    bool isShownAtAll(Slot slot) const;
    // The nearest one above that is no link of a chain.
    Slot shownParent(Slot slot) const { return above[slot]; }
    bool isKept(Slot slot) const { return kept[slot]; }
    // Whether something in it is kept.
    bool isOpen(Slot slot) const { return open[slot]; }

private:
    struct Share
    {
        double part = 0;
        double whole = 0;
    };

    Slot parentOf(Slot slot) const { return isOwn(slot) ? itemOf(slot) : tree.parent(slot); }
    bool isLink(Slot slot) const; // of a chain, but not its end
    void sumUp();
    void sumUpShares();
    void addOwnSlots();
    void findRoot();
    void joinChains();

    const WeightTree &tree;
    Slot firstOwn = 0;
    QList<WeightTree::Item> owners; // of the slots that are own weights
    // With all that is in the slots.
    QList<double> weights;
    QList<Share> shares; // empty if the tree has none
    QList<qint32> members; // slots right in it that weigh something
    QList<Slot> above;
    QList<bool> kept;
    QList<bool> open;
    Slot top = 0;
};

} // namespace ORR::Companion
