#include "tools/editors/attribute_json.h"

#include "layout/attribute_tables.h"
#include "support/golden.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

using namespace ORR::Docs;
using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

constexpr auto validator = R"(
import json, sys, jsonschema
schema = json.load(open(sys.argv[1], encoding="utf-8"))
jsonschema.Draft7Validator.check_schema(schema)
faults = list(jsonschema.Draft7Validator(schema).iter_errors(json.load(sys.stdin)))
for fault in faults:
    print("/".join(map(str, fault.path)), fault.message[:300])
if not faults:
    print("valid")
)"_L1;

QByteArray faultsOf(const QByteArray &json)
{
    QProcess python;
    python.setProcessChannelMode(QProcess::MergedChannels);
    python.start(
        u"python3"_s,
        {u"-c"_s, validator, QStringLiteral(ORR_PROJECT_FOLDER "/editors/attributes.schema.json")});
    python.write(json);
    python.closeWriteChannel();
    python.waitForFinished(60'000);
    return python.readAll();
}

QJsonObject document()
{
    return QJsonDocument::fromJson(attributeJson(u"1.0"_s)).object();
}

QJsonObject named(const QJsonValue &list, const QString &name)
{
    for (const QJsonValue &one : list.toArray()) {
        if (one[u"name"_s] == name)
            return one.toObject();
    }
    return {};
}

} // namespace

TEST(AttributeJson, has_the_form_of_its_schema)
{
    EXPECT_EQ(faultsOf(attributeJson(u"1.0"_s)), "valid\n");
}

// So that the test above can fail.
TEST(AttributeJson, has_a_schema_that_refuses_what_is_strange)
{
    QByteArray json = attributeJson(u"1.0"_s);
    EXPECT_TRUE(faultsOf(QByteArray(json).replace("\"inches\"", "\"feet\"")).contains("feet"));
    EXPECT_TRUE(faultsOf(json.replace("\"colors\"", "\"colours\"")).contains("colours"));
}

TEST(AttributeJson, has_every_row_of_every_engine)
{
    const QJsonObject all = document();
    for (const Layout::EngineTables &engine : Layout::engineTables()) {
        const QJsonObject object = named(all[u"engines"_s], latin1(engine.engine));
        for (const AttributeTable *table : engine.tables) {
            for (const AttributeRow *row : table->rows) {
                const bool isRead = bool(Layout::elementsRead(engine, *row));
                const QJsonObject attribute = named(object[u"attributes"_s], row->name.text());
                EXPECT_EQ(!attribute.isEmpty(), isRead) << row->name.text().toStdString();
            }
        }
    }
    EXPECT_EQ(all[u"engines"_s].toArray().size(), qsizetype(Layout::engineTables().size()));
}

TEST(AttributeJson, says_what_a_row_says)
{
    const QJsonObject all = document();
    const QJsonObject treemap = named(all[u"engines"_s], u"treemap"_s);
    const QJsonObject style = named(treemap[u"attributes"_s], u"style"_s);
    EXPECT_EQ(style[u"type"_s], u"words"_s);
    EXPECT_EQ(style[u"words"_s][1][u"word"_s], u"dashed"_s);
    EXPECT_EQ(style[u"words"_s][1][u"description"_s], u"lines are dashed"_s);
    const QJsonObject width = named(treemap[u"attributes"_s], u"penwidth"_s);
    EXPECT_EQ(width[u"type"_s], u"integer"_s);
    EXPECT_EQ(width[u"unit"_s], u"points"_s);
    EXPECT_EQ(width[u"default"_s], u"1"_s);
    const QJsonObject elements{{u"cluster"_s, u"inherited"_s},
                               {u"node"_s, u"default of its kind"_s}};
    EXPECT_EQ(width[u"elements"_s].toObject(), elements);
    EXPECT_EQ(named(all[u"colors"_s], u"navy"_s)[u"value"_s], u"#000080"_s);
    EXPECT_FALSE(named(all[u"colors"_s], u"none"_s).contains(u"value"_s));
}
