#include "companion/produce/weight_tree.h"

#include <algorithm>
#include <cstring>

namespace ORR::Companion {

namespace {

constexpr double largest = std::numeric_limits<double>::max();

// FNV-1a, eight bytes at a time; the same on every run.
quint64 hashOf(qint32 parent, QByteArrayView name)
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
    return hash ^ (hash >> 32);
}

} // namespace

WeightTree::WeightTree() : nodes{{.nameStart = 0, .nameLength = 0, .parent = none}}, table(64, none)
{
}

QByteArrayView WeightTree::name(Item item) const
{
    return QByteArrayView(names).sliced(nodes[item].nameStart, nodes[item].nameLength);
}

// Where it is in the table, or the free place that it would take.
size_t WeightTree::placeOf(Item parent, QByteArrayView wanted) const
{
    const size_t mask = size_t(table.size()) - 1;
    size_t place = size_t(hashOf(parent, wanted)) & mask;
    while (table[qsizetype(place)] != none) {
        const Item item = table[qsizetype(place)];
        if (nodes[item].parent == parent && name(item) == wanted)
            break;
        place = (place + 1) & mask;
    }
    return place;
}

void WeightTree::grow()
{
    table = QList<Item>(2 * table.size(), none);
    for (Item item = 1; item < nodes.size(); ++item)
        table[qsizetype(placeOf(nodes[item].parent, name(item)))] = item;
}

WeightTree::Item WeightTree::child(Item parent, QByteArrayView wanted)
{
    size_t place = placeOf(parent, wanted);
    if (const Item known = table[qsizetype(place)]; known != none)
        return known;
    if (2 * nodes.size() > table.size()) {
        grow();
        place = placeOf(parent, wanted);
    }
    const Item made = Item(nodes.size());
    nodes.append(
        {.nameStart = names.size(), .nameLength = qint32(wanted.size()), .parent = parent});
    names += wanted;
    table[qsizetype(place)] = made;
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
