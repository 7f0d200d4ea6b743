#include "companion/produce/weight_tree.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace ORR::Companion {

namespace {

constexpr double largest = std::numeric_limits<double>::max();

// FNV-1a, eight bytes at a time, and the mixing of MurmurHash3 (Appleby) at the end, without which
// names that are numbered lie in a row; the same on every run.
quint32 hashOf(QByteArrayView name)
{
    constexpr quint64 prime = 0x100000001b3;
    quint64 hash = 0xcbf29ce484222325;
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

// To twice the places.
template <typename Slots>
void grow(Slots *places)
{
    const Slots small = std::exchange(*places, Slots(2 * places->size()));
    const size_t mask = places->size() - 1;
    for (const auto &slot : small) {
        if (slot.item == WeightTree::none)
            continue;
        size_t place = slot.hash & mask;
        while ((*places)[place].item != WeightTree::none)
            place = (place + 1) & mask;
        (*places)[place] = slot;
    }
}

// Few children are found as fast by looking at each.
constexpr int mostInARow = 4;

} // namespace

WeightTree::WeightTree() : nodes{{.nameStart = 0, .nameLength = 0, .parent = none}} { }

QByteArrayView WeightTree::name(Item item) const
{
    const Node &node = nodes[item];
    return {names.constData() + node.nameStart, node.nameLength};
}

// Where it is in the table, or the free place that it would take.
size_t WeightTree::placeOf(const ChildTable &table, quint32 hash, QByteArrayView wanted) const
{
    const size_t mask = table.places.size() - 1;
    for (size_t place = hash & mask;; place = (place + 1) & mask) {
        const Slot &slot = table.places[place];
        if (slot.item == none || (slot.hash == hash && name(slot.item) == wanted))
            return place;
    }
}

void WeightTree::makeTable(Item parent)
{
    constexpr size_t smallest = 16;
    ChildTable table = {.places = std::vector<Slot>(smallest)};
    for (Item child = nodes[parent].firstChild; child != none; child = nodes[child].next) {
        const quint32 hash = hashOf(name(child));
        table.places[placeOf(table, hash, name(child))] = {.hash = hash, .item = child};
        ++table.taken;
    }
    nodes[parent].table = qint32(tables.size());
    tables.push_back(std::move(table));
}

WeightTree::Item WeightTree::childInTable(Item parent, QByteArrayView wanted)
{
    ChildTable &table = tables[std::as_const(nodes)[parent].table];
    const quint32 hash = hashOf(wanted);
    size_t place = placeOf(table, hash, wanted);
    if (const Item known = table.places[place].item; known != none)
        return known;
    if (2 * table.taken >= table.places.size()) {
        grow(&table.places);
        place = placeOf(table, hash, wanted);
    }
    const Item made = appended(parent, wanted);
    table.places[place] = {.hash = hash, .item = made};
    ++table.taken;
    return made;
}

WeightTree::Item WeightTree::appended(Item parent, QByteArrayView itsName)
{
    const Item made = Item(nodes.size());
    nodes.append(
        {.nameStart = names.size(), .nameLength = qint32(itsName.size()), .parent = parent});
    names += itsName;
    Node &above = nodes[parent];
    (above.lastChild == none ? above.firstChild : nodes[above.lastChild].next) = made;
    above.lastChild = made;
    return made;
}

WeightTree::Item WeightTree::child(Item parent, QByteArrayView wanted)
{
    const QList<Node> &known = std::as_const(nodes);
    if (known[parent].table != none)
        return childInTable(parent, wanted);
    int others = 0;
    for (Item child = known[parent].firstChild; child != none; child = known[child].next) {
        if (name(child) == wanted)
            return child;
        ++others;
    }
    const Item made = appended(parent, wanted);
    if (others == mostInARow)
        makeTable(parent);
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
    if (size_t(item) >= shares.size())
        shares.resize(size_t(nodes.size()));
    Share &share = shares[item];
    share.part = std::min(largest, share.part + part);
    share.whole = std::min(largest, share.whole + whole);
}

void WeightTree::setKind(Item item, int kind)
{
    nodes[item].kind = kind;
}

} // namespace ORR::Companion
