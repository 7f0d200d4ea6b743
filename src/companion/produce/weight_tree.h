#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QtGlobal>

#include <limits>
#include <vector>

namespace ORR::Companion {

// A tree of named things with a weight each, made of paths: folders and files, callers and callees.
// Its memory goes with the number of its things and their names, not with how often they are added
// to. Names are bytes of any kind; a name is once among the children of a thing.
class WeightTree
{
public:
    using Item = qint32;
    static constexpr Item root = 0;
    static constexpr Item none = -1;

    WeightTree();

    // The child of that name, made if there is none.
    Item child(Item parent, QByteArrayView name);
    // That of a path below the root. Empty parts and "." are passed over, ".." goes up as far as
    // the root.
    Item at(QByteArrayView path, char separator = '/');

    // Adds to a thing's own weight, which is beside those of its children. Weights are above or
    // equal to 0 and finite; sums saturate at the largest double.
    void addWeight(Item item, double weight);
    // Adds to what its colour is made of: `part` of `whole` (covered lines of lines), or with a
    // whole of 1 each time a mean.
    void addShare(Item item, double part, double whole);
    // What sort of thing it is, by a number of the caller's, from 0.
    void setKind(Item item, int kind);

    qsizetype size() const { return nodes.size(); } // the root counts
    Item parent(Item item) const { return nodes[item].parent; }
    Item firstChild(Item item) const { return nodes[item].firstChild; }
    Item nextSibling(Item item) const { return nodes[item].next; } // in the order of their making
    QByteArrayView name(Item item) const;
    double ownWeight(Item item) const { return nodes[item].weight; }
    // Whether anything was added to what colours are made of.
    bool hasShares() const { return !shares.empty(); }
    double part(Item item) const { return shareOf(item).part; }
    double whole(Item item) const { return shareOf(item).whole; }
    int kind(Item item) const { return nodes[item].kind; } // -1 if none was set

private:
    struct Node
    {
        qint64 nameStart;
        qint32 nameLength;
        Item parent;
        Item firstChild = none;
        Item lastChild = none;
        Item next = none;
        qint32 kind = -1;
        qint32 table = none; // of its children; none while they are few
        double weight = 0;
    };

    struct Share
    {
        double part = 0;
        double whole = 0;
    };

    struct Slot
    {
        quint32 hash = 0; // so that most others are told apart without a look at them
        Item item = none;
    };

    // The children of one thing by their names: open addressing. Paths mostly come folder by
    // folder, and the table of a single folder stays in the cache meanwhile.
    struct ChildTable
    {
        std::vector<Slot> places;
        size_t taken = 0;
    };

    Share shareOf(Item item) const { return size_t(item) < shares.size() ? shares[item] : Share(); }
    Item appended(Item parent, QByteArrayView name);
    void makeTable(Item parent);
    Item childInTable(Item parent, QByteArrayView name);
    size_t placeOf(const ChildTable &table, quint32 hash, QByteArrayView name) const;

    QList<Node> nodes; // grows where it is, mostly, unlike a vector
    std::vector<Share> shares; // by item, as far as there are any
    std::vector<ChildTable> tables;
    QByteArray names; // one after the other
};

} // namespace ORR::Companion
