#include "graph/attribute_map.h"

#include <utility>

namespace ORR::Graph {

namespace {

// Up to this many entries a search through the list is as fast as a hash.
constexpr qsizetype longestPlainList = 16;

} // namespace

AttributeMap::AttributeMap(std::initializer_list<Entry> entries)
{
    for (const Entry &entry : entries)
        insert(entry.name, entry.value);
}

const AttributeMap::Entry *AttributeMap::entryOf(const Data &data, const AttributeName &name)
{
    if (name.isKnown() && !(data.knownNames & bitOf(name)))
        return nullptr;
    if (data.entries.size() > longestPlainList) {
        const auto place = data.index.constFind(name);
        return place == data.index.cend() ? nullptr : &data.entries.at(*place);
    }
    for (const Entry &entry : data.entries) {
        if (entry.name == name)
            return &entry;
    }
    return nullptr;
}

const QString *AttributeMap::find(const AttributeName &name) const
{
    const Entry *entry = d ? entryOf(*d, name) : nullptr;
    return entry ? &entry->value : nullptr;
}

QString AttributeMap::value(const AttributeName &name) const
{
    const QString *found = find(name);
    return found ? *found : QString();
}

void AttributeMap::insert(const AttributeName &name, QString value)
{
    // A null value would read like a missing name.
    if (value.isNull())
        value = QStringLiteral("");
    if (!d)
        d = new Data;
    Data &data = *d;
    if (const Entry *entry = entryOf(data, name)) {
        data.entries[entry - data.entries.cbegin()].value = std::move(value);
        return;
    }
    data.entries.append({name, std::move(value)});
    if (name.isKnown())
        data.knownNames |= bitOf(name);
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
