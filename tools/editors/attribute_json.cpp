#include "tools/editors/attribute_json.h"

#include "device/color_value.h"
#include "drawing/format_table.h"
#include "layout/attribute_tables.h"
#include "tools/attribute_words.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace ORR::Docs {

using namespace Graph;

namespace {

// For programs, which compare them; `typeName` is for people.
QString typeId(AttributeType type)
{
    switch (type) {
    case AttributeType::Number:
        return u"number"_s;
    case AttributeType::Integer:
        return u"integer"_s;
    case AttributeType::Inches:
        return u"inches"_s;
    case AttributeType::NumberPair:
        return u"number-pair"_s;
    case AttributeType::InchPair:
        return u"inch-pair"_s;
    case AttributeType::Color:
        return u"color"_s;
    case AttributeType::Choice:
        return u"choice"_s;
    case AttributeType::Words:
        return u"words"_s;
    case AttributeType::Text:
        break;
    }
    return u"text"_s;
}

// The elements of which the engine reads it, each with its lookup.
QJsonObject lookups(const AttributeRow &row, AttributeElements elements)
{
    QJsonObject object;
    for (const AttributeElement element : elementsIn(elements))
        object[elementName(element)] = lookupName(row.lookup, element);
    return object;
}

QJsonObject attributeObject(const AttributeRow &row, AttributeElements elements)
{
    QJsonObject object{{u"name"_s, row.name.text()},
                       {u"elements"_s, lookups(row, elements)},
                       {u"type"_s, typeId(row.type)},
                       {u"description"_s, QString(latin1(row.meaning))}};
    if (!row.unit.empty())
        object[u"unit"_s] = QString(latin1(row.unit));
    if (!row.byDefault.empty())
        object[u"default"_s] = QString(latin1(row.byDefault));
    QJsonArray words;
    for (const AttributeWord &word : row.words)
        words += QJsonObject{{u"word"_s, QString(latin1(word.word))},
                             {u"description"_s, QString(latin1(word.meaning))}};
    if (!words.isEmpty())
        object[u"words"_s] = words;
    return object;
}

// What is read, and what the engine writes over.
QJsonObject engineObject(const Layout::EngineTables &engine)
{
    QJsonArray attributes;
    QStringList written;
    for (const AttributeTable *table : engine.tables) {
        for (const AttributeRow *row : table->rows) {
            const AttributeElements elements = Layout::elementsRead(engine, *row);
            if (elements)
                attributes += attributeObject(*row, elements);
        }
        for (const WorkingRow *row : table->working)
            written += row->name.text();
    }
    written.removeDuplicates();
    return {{u"name"_s, QString(latin1(engine.engine))},
            {u"attributes"_s, attributes},
            {u"written"_s, QJsonArray::fromStringList(written)}};
}

QJsonArray colorArray()
{
    QJsonArray colors;
    for (const QString &name : colorNames()) {
        const ColorValue color(name);
        QJsonObject object{{u"name"_s, name}};
        if (color.alpha() != 0) // nothing is painted
            object[u"value"_s] = color.toString();
        colors += object;
    }
    return colors;
}

} // namespace

QByteArray attributeJson(const QString &version)
{
    QJsonArray engines;
    for (const Layout::EngineTables &engine : Layout::engineTables())
        engines += engineObject(engine);
    const QJsonObject object{
        {u"$schema"_s, u"attributes.schema.json"_s},
        {u"version"_s, version},
        {u"formats"_s, QJsonArray::fromStringList(Drawing::formatNamesForHelp())},
        {u"keywords"_s, QJsonArray{u"digraph"_s, u"subgraph"_s, u"graph"_s, u"node"_s, u"edge"_s}},
        {u"colors"_s, colorArray()},
        {u"engines"_s, engines},
    };
    return QJsonDocument(object).toJson();
}

} // namespace ORR::Docs
