#pragma once

#include <QHash>
#include <QList>
#include <QSharedData>
#include <QSharedDataPointer>
#include <QString>

namespace ORR::Graph {

// A map from attribute name to attribute value, copied cheaply and written on copy.
//
// Nearly all maps hold a handful of entries and there is one for every node, so the entries stand
// in a plain list that is searched from its start; a hash of that size would cost some two
// kilobytes a map. Only a map that outgrows the list gets an index. Entries keep the order in which
// their names first came, so that whatever is written from a map is the same on every run.
//
// A name without a value (an empty text) is present; a null QString never comes from a present one.
class AttributeMap
{
public:
    struct Entry
    {
        QString name;
        QString value;
        friend bool operator==(const Entry &, const Entry &) = default;
    };
    using const_iterator = QList<Entry>::const_iterator;

    AttributeMap() = default;
    AttributeMap(std::initializer_list<Entry> entries);

    bool isEmpty() const { return size() == 0; }
    qsizetype size() const { return d ? d->entries.size() : 0; }

    // The value stored under `name`, or null if there is none. Valid until the map changes.
    const QString *find(const QString &name) const;
    bool contains(const QString &name) const { return find(name) != nullptr; }
    // A copy of the value; a null QString if the name is missing.
    QString value(const QString &name) const;

    // Stores the value, replacing an earlier one under the same name.
    void insert(const QString &name, const QString &value);

    const_iterator begin() const { return d ? d->entries.cbegin() : const_iterator(); }
    const_iterator end() const { return d ? d->entries.cend() : const_iterator(); }

    // The same names with the same values, in whatever order.
    friend bool operator==(const AttributeMap &a, const AttributeMap &b);

private:
    friend void mergeAttributes(AttributeMap &target, const AttributeMap &source);

    struct Data : QSharedData
    {
        QList<Entry> entries;
        QHash<QString, qsizetype> index; // empty while the list is short
    };
    static qsizetype position(const Data &data, const QString &name);

    QSharedDataPointer<Data> d;
};

// Adds all entries of `source` to `target`; on equal names the value of `source` wins. An empty
// target becomes a shared copy.
void mergeAttributes(AttributeMap &target, const AttributeMap &source);

} // namespace ORR::Graph
