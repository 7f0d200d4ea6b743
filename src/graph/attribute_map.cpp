#include "graph/attribute_map.h"

#include <utility>

namespace ORR::Graph {

namespace {

// Up to this many entries a search through the list is as fast as a hash.
constexpr qsizetype longestPlainList = 16;

// Room for this many is made at once.
constexpr qsizetype usualCount = 4;

} // namespace

AttributeMap::AttributeMap(std::initializer_list<Entry> entries)
{
    for (const Entry &entry : entries)
        insert(entry.name, entry.value);
}

qsizetype AttributeMap::position(const Data &data, const QString &name)
{
    if (data.entries.size() > longestPlainList)
        return data.index.value(name, -1);
    for (qsizetype i = 0; i < data.entries.size(); ++i) {
        if (data.entries.at(i).name == name)
            return i;
    }
    return -1;
}

const QString *AttributeMap::find(const QString &name) const
{
    if (!d)
        return nullptr;
    const qsizetype i = position(*d, name);
    return i < 0 ? nullptr : &d->entries.at(i).value;
}

QString AttributeMap::value(const QString &name) const
{
    const QString *found = find(name);
    return found ? *found : QString();
}

void AttributeMap::insert(const QString &name, const QString &value)
{
    // A null value would read like a missing name.
    const QString stored = value.isNull() ? QStringLiteral("") : value;
    if (!d) {
        d = new Data;
        d->entries.reserve(usualCount);
    }
    const qsizetype i = position(*std::as_const(d), name);
    Data &data = *d;
    if (i >= 0) {
        data.entries[i].value = stored;
        return;
    }
    data.entries.append({name, stored});
    const qsizetype count = data.entries.size();
    if (count == longestPlainList + 1) {
        for (qsizetype k = 0; k < count; ++k)
            data.index.insert(data.entries.at(k).name, k);
    } else if (count > longestPlainList) {
        data.index.insert(name, count - 1);
    }
}

bool operator==(const AttributeMap &a, const AttributeMap &b)
{
    if (a.size() != b.size())
        return false;
    for (const AttributeMap::Entry &entry : a) {
        const QString *other = b.find(entry.name);
        if (!other || *other != entry.value)
            return false;
    }
    return true;
}

void mergeAttributes(AttributeMap &target, const AttributeMap &source)
{
    if (source.isEmpty() || target.d.constData() == source.d.constData())
        return;
    if (target.isEmpty()) {
        target = source;
        return;
    }
    for (const AttributeMap::Entry &entry : source)
        target.insert(entry.name, entry.value);
}

} // namespace ORR::Graph
