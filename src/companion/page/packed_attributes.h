#pragma once

#include "companion/page/given_attributes.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace ORR::Companion {

// The attributes of the objects of a page, packed for its table: a name stands there once, so do
// the names that objects have together, defaults, and values as far as they begin alike.
//
// An object has a set, which tells its defaults and the names of its own attributes. Its values
// stand in a list, those of one object behind those of the one before it: the number of a value
// that stands in the list already, counted without numbers, or a text after the last one of the
// same name (packed_lists.h).
class PackedAttributes
{
public:
    explicit PackedAttributes(const GivenAttributes &givenAttributes) : given(givenAttributes) { }

    // Adds an object, in the order of the table. own: what it was given itself, of which the label
    // may have been left out; null for an object of no graph.
    void add(const Graph::DotObject *object, const Graph::AttributeMap &own);

    // Lists of JSON, once all objects have been added.
    QByteArray names() const;
    QByteArray sets() const; // each the number of its defaults, -1 for none, and numbers of names
    QByteArray setOfEach() const; // the number of a set, then of objects one after another with it
    QByteArray values() const { return '[' + valueList + ']'; }
    // Each the number of those around it, -1 for none, then numbers of names and values in turn.
    QByteArray defaults() const;
    // Numbers of names and values in turn.
    QByteArray pairs(const Graph::AttributeMap &attributes);

private:
    qsizetype numberOf(const QString &name);
    int writtenDefaults(int defaults);
    QByteArray packed(const QString &value, qsizetype name);

    const GivenAttributes &given;
    QStringList allNames; // as they came
    QHash<QString, qsizetype> nameNumbers;
    QList<QByteArray> allSets;
    QHash<QByteArray, qsizetype> setPlaces;
    struct Run
    {
        qsizetype set;
        qsizetype count;
    };
    QList<Run> runs;
    QByteArray valueList;
    QHash<QString, qsizetype> known; // values that stand in the list
    qsizetype textCount = 0; // in the list
    QHash<qsizetype, QString> lastValues; // by name
    QHash<int, int> defaultsPlaces; // those that objects have, by their number in `given`
    QByteArrayList allDefaults;
};

} // namespace ORR::Companion
