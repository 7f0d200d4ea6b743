#include "companion/produce/weight_tree.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace ORR::Companion {

namespace {

constexpr double largest = std::numeric_limits<double>::max();

// FNV-1a, eight bytes at a time, and the mixing of MurmurHash3 (Appleby) at the end, without which
// names that are numbered lie in a row; the same on every run.
quint32 hashOf(qint32 parent, QByteArrayView name)
{
    constexpr quint64 prime = 0x100000001b3;
    quint64 hash = (0xcbf29ce484222325 ^ quint64(quint32(parent))) * prime;
    const char *bytes = name.data();
    qsizetype left = name.size();
    for (; left >= 8; left -= 8, bytes += 8) {
        quint64 word = 0;
        std::memcpy(&word, bytes, 8);
        hash = (hash ^ word) * prime;
        hash ^= hash >> 29;
    }
    for (; left > 0; --left, ++bytes)
        hash = (hash ^ quint8(*bytes)) * prime;
    hash = (hash ^ (hash >> 33)) * 0xff51afd7ed558ccd;
    hash = (hash ^ (hash >> 33)) * 0xc4ceb9fe1a85ec53;
    return quint32(hash ^ (hash >> 33));
}

} // namespace

WeightTree::WeightTree() : nodes{{.nameStart = 0, .nameLength = 0, .parent = none}}, table(64) { }

QByteArrayView WeightTree::name(Item item) const
{
    return QByteArrayView(names).sliced(nodes[item].nameStart, nodes[item].nameLength);
}

// Where it is in the table, or the free place that it would take.
qsizetype WeightTree::placeOf(quint32 hash, Item parent, QByteArrayView wanted) const
{
    const qsizetype mask = table.size() - 1;
    for (qsizetype place = hash & mask;; place = (place + 1) & mask) {
        const Slot &slot = table[place];
        if (slot.item == none)
            return place;
        if (slot.hash == hash && nodes[slot.item].parent == parent && name(slot.item) == wanted)
            return place;
    }
}

void WeightTree::grow()
{
    const QList<Slot> small = std::exchange(table, QList<Slot>(2 * table.size()));
    const qsizetype mask = table.size() - 1;
    for (const Slot &slot : small) {
        if (slot.item == none)
            continue;
        qsizetype place = slot.hash & mask;
        while (table[place].item != none)
            place = (place + 1) & mask;
        table[place] = slot;
    }
}

WeightTree::Item WeightTree::child(Item parent, QByteArrayView wanted)
{
    const quint32 hash = hashOf(parent, wanted);
    qsizetype place = placeOf(hash, parent, wanted);
    if (const Item known = table[place].item; known != none)
        return known;
    if (2 * nodes.size() > table.size()) {
        grow();
        place = placeOf(hash, parent, wanted);
    }
    const Item made = Item(nodes.size());
    nodes.append(
        {.nameStart = names.size(), .nameLength = qint32(wanted.size()), .parent = parent});
    names += wanted;
    table[place] = {.hash = hash, .item = made};
    Node &above = nodes[parent];
    (above.lastChild == none ? above.firstChild : nodes[above.lastChild].next) = made;
    above.lastChild = made;
    return made;
}

WeightTree::Item WeightTree::at(QByteArrayView path, char separator)
{
    Item item = root;
    while (!path.isEmpty()) {
        const qsizetype end = path.indexOf(separator);
        const QByteArrayView part = end < 0 ? path : path.first(end);
        path = end < 0 ? QByteArrayView() : path.sliced(end + 1);
        if (part == "..")
            item = std::max(root, nodes[item].parent);
        else if (!part.isEmpty() && part != ".")
            item = child(item, part);
    }
    return item;
}

void WeightTree::addWeight(Item item, double weight)
{
    nodes[item].weight = std::min(largest, nodes[item].weight + weight);
}

void WeightTree::addShare(Item item, double part, double whole)
{
    nodes[item].part = std::min(largest, nodes[item].part + part);
    nodes[item].whole = std::min(largest, nodes[item].whole + whole);
}

void WeightTree::setKind(Item item, int kind)
{
    nodes[item].kind = kind;
}

} // namespace ORR::Companion
