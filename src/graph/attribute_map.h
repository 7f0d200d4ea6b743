#pragma once

#include "graph/attribute_name.h"

#include <QHash>
#include <QSharedData>
#include <QSharedDataPointer>
#include <QString>
#include <QVarLengthArray>

namespace ORR::Graph {

// A map from attribute name to attribute value, copied cheaply and written on copy.
//
// Nearly all maps hold a handful of entries and there is one for every node, so the entries stand
// in a plain list that is searched from its start, the first of them in the same piece of memory as
// the list; a hash of that size would cost some two kilobytes a map. Only a map that outgrows the
// list gets an index. Entries keep the order in which their names first came, so that whatever is
// written from a map is the same on every run.
//
// A name without a value (an empty text) is present; a null QString never comes from a present one.
class AttributeMap
{
public:
    struct Entry
    {
        AttributeName name;
        QString value;
        friend bool operator==(const Entry &, const Entry &) = default;
    };
    using const_iterator = const Entry *;

    AttributeMap() = default;
    AttributeMap(std::initializer_list<Entry> entries);

    bool isEmpty() const { return size() == 0; }
    qsizetype size() const { return d ? d->entries.size() : 0; }

    // The value stored under `name`, or null if there is none. Valid until the map changes.
    const QString *find(const AttributeName &name) const;
    bool contains(const AttributeName &name) const { return find(name) != nullptr; }
    // A copy of the value; a null QString if the name is missing.
    QString value(const AttributeName &name) const;

    // Stores the value, replacing an earlier one under the same name.
    void insert(const AttributeName &name, QString value);

    const_iterator begin() const { return d ? d->entries.cbegin() : nullptr; }
    const_iterator end() const { return d ? d->entries.cend() : nullptr; }

    // The same names with the same values, in whatever order.
    friend bool operator==(const AttributeMap &a, const AttributeMap &b);

private:
    friend void mergeAttributes(AttributeMap &target, const AttributeMap &source);

    static constexpr qsizetype usualCount = 3; // room for so many is made at once

    struct Data : QSharedData
    {
        // A bit for each known name, every 32nd of which share one: most names that are looked for
        // are in no map but that of the defaults.
        quint32 knownNames = 0;
        QVarLengthArray<Entry, usualCount> entries;
        QHash<AttributeName, qsizetype> index; // empty while the list is short
    };
    static quint32 bitOf(const AttributeName &name) { return 1U << (name.number() % 32); }
    static const Entry *entryOf(const Data &data, const AttributeName &name);

    QSharedDataPointer<Data> d;
};

// Adds all entries of `source` to `target`; on equal names the value of `source` wins. An empty
// target becomes a shared copy.
void mergeAttributes(AttributeMap &target, const AttributeMap &source);

} // namespace ORR::Graph
