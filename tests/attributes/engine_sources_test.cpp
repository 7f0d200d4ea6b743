// What the compiler can't hold: that engines and what paints for them read by their rows alone, and
// that each row stands in the table that is shown to readers.
#include "layout/attribute_tables.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

const QString sourceFolder = QStringLiteral(ORR_TEST_FOLDER "/../../src/");

struct Source
{
    QString path; // below src
    QString text;
};

QList<Source> sourcesIn(const QString &folder, const QStringList &patterns)
{
    QList<Source> sources;
    QDirIterator files(sourceFolder + folder, patterns, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        sources.append({path.sliced(sourceFolder.size()), QString::fromUtf8(readTestFile(path))});
    }
    return sources;
}

// The places of a source that read or write an attribute past the rows: calls of the graph, and any
// mention of the maps of its objects, which may be given another name before they are read.
QStringList directAccesses(const QString &text)
{
    static const QRegularExpression access(
        uR"((?:->|\.|::)\s*(?:(?:(?:graph|node|edge|find|set\w*|declare)Attribute|)"
        uR"((?:node|edge)Default)\s*\(|(?:attributes|nodeDefaults|edgeDefaults)\b))"_s);
    QStringList accesses;
    for (const QRegularExpressionMatch &match : access.globalMatch(text))
        accesses += match.captured();
    return accesses;
}

// The names of the rows that a header defines, of those that passes write or of all others.
QStringList definedRows(const QString &text, bool working)
{
    static const QRegularExpression row(
        uR"(inline\s+constexpr\s+(\w+Attribute)\s*<[^>]*>\s+(\w+)\s*[{(=])"_s);
    QStringList names;
    for (const QRegularExpressionMatch &match : row.globalMatch(text)) {
        if ((match.captured(1) == "WorkingAttribute"_L1) == working)
            names += match.captured(2);
    }
    return names;
}

// The names in a header's list `rows` or `working`.
QStringList listedRows(const QString &text, const QString &list)
{
    const QRegularExpression definition(uR"(\*\s*%1\[\]\s*=\s*\{([^}]*)\})"_s.arg(list));
    static const QRegularExpression entry(uR"(&(?:\w+::)*(\w+))"_s);
    QStringList names;
    for (const QRegularExpressionMatch &match :
         entry.globalMatch(definition.match(text).captured(1)))
        names += match.captured(1);
    return names;
}

QString tableName(const QString &text)
{
    static const QRegularExpression table(uR"-(constexpr\s+AttributeTable\s+table\{\s*"(\w+)")-"_s);
    return table.match(text).captured(1);
}

QList<Source> tableHeaders()
{
    return sourcesIn(u"attributes"_s, {u"*_attributes.h"_s})
        + sourcesIn(u"layout"_s, {u"*_attributes.h"_s});
}

} // namespace

TEST(EngineSources, read_attributes_by_their_rows_alone)
{
    // Each with how often it names a map, and why it may.
    const QHash<QString, qsizetype> allowed{
        // Hands all that a section says on to the node that stands for it, and reads none of it.
        {u"layout/sequence/uml_reading.cpp"_s, 2},
        // A reader of rows itself, by a lookup that only the frames of graphs have.
        {u"layout/graflib/frame_attribute.h"_s, 1},
        // These are the attributes of tags of rich text.
        {u"device/markup_reader.cpp"_s, 1},
        {u"device/rich_text_price.cpp"_s, 5},
    };
    int allowedRead = 0;
    for (const QString &folder : {u"layout"_s, u"device"_s}) {
        const QList<Source> sources = sourcesIn(folder, {u"*.h"_s, u"*.cpp"_s});
        EXPECT_GT(sources.size(), 20) << folder.toStdString();
        for (const Source &source : sources) {
            const QStringList accesses = directAccesses(source.text);
            EXPECT_EQ(accesses.size(), allowed.value(source.path))
                << source.path.toStdString() << ": " << accesses.join(u", "_s).toStdString();
            allowedRead += allowed.contains(source.path);
        }
    }
    EXPECT_EQ(allowedRead, allowed.size());
}

// A row that is missing in the list would be read and shown nowhere. Those that a header shares
// out, without a table of its own, stand in the lists of its folder.
TEST(EngineSources, list_every_row_in_a_table)
{
    const QList<Source> headers = tableHeaders();
    EXPECT_GE(headers.size(), 4);
    int rows = 0;
    for (const Source &header : headers) {
        QString lists = header.text;
        if (tableName(header.text).isEmpty()) {
            for (const Source &other : headers) {
                if (other.path.section(u'/', 0, -2) == header.path.section(u'/', 0, -2))
                    lists = lists + other.text;
            }
        }
        for (const bool working : {false, true}) {
            QStringList listed;
            for (const QString &part : lists.split(u"#pragma once"_s))
                listed += listedRows(part, working ? u"working"_s : u"rows"_s);
            for (const QString &name : definedRows(header.text, working)) {
                EXPECT_TRUE(listed.contains(name))
                    << header.path.toStdString() << ": " << name.toStdString();
                ++rows;
            }
        }
    }
    EXPECT_GT(rows, 20);
}

TEST(EngineSources, have_no_table_that_is_not_listed)
{
    QSet<QString> listed;
    for (const AttributeTable *table : attributeTables())
        listed += QString(latin1(table->reader));
    QSet<QString> defined;
    for (const Source &header : tableHeaders()) {
        const QString name = tableName(header.text);
        if (!name.isEmpty())
            defined += name;
    }
    EXPECT_EQ(defined, listed) << "src/layout/attribute_tables.cpp has a line for each";
}

// The checks above find what they look for.

TEST(EngineSources, a_direct_access_is_seen)
{
    EXPECT_EQ(directAccesses(u"graph->nodeAttribute(node, u\"x\"_s)"_s).size(), 1);
    EXPECT_EQ(directAccesses(u"context.graph->graphAttribute(s, name)"_s).size(), 1);
    EXPECT_EQ(
        directAccesses(u"graph->setEdgeAttribute(e, n, v); graph->setAttribute(o, n, v)"_s).size(),
        2);
    EXPECT_EQ(directAccesses(u"node->attributes.find(name)"_s).size(), 1);
    EXPECT_EQ(directAccesses(u"object.attributes\n    .insert(name, value)"_s).size(), 1);
    EXPECT_EQ(directAccesses(u"graph->findAttribute(node, name)"_s).size(), 1);
    EXPECT_EQ(directAccesses(u"graph->nodeDefault(root, name)"_s).size(), 1);
    EXPECT_EQ(directAccesses(u"auto &a = n->attributes;\na.find(name)"_s).size(), 1);
    EXPECT_EQ(directAccesses(u"mapOf(s, &DotSubgraph::nodeDefaults)"_s).size(), 1);
    EXPECT_EQ(directAccesses(u"Rows::area.of(graph, node); items.contains(x); label.find(g, n); "
                             "#include \"attributes/paint_attributes.h\""_s),
              QStringList());
}

TEST(EngineSources, the_rows_of_a_header_are_seen)
{
    const QString header =
        u"inline constexpr NumberAttribute<Node, Edge> area{\"area\"_attribute};\n"
        "inline constexpr WorkingAttribute<Node>\n    x{\"x\"_attribute};\n"
        "inline constexpr const AttributeRow *rows[] = {&area, &Other::color};\n"
        "inline constexpr const WorkingRow *working[] = {&x};\n"
        "inline constexpr AttributeTable table{\"sample\", rows, working};"_s;
    EXPECT_EQ(definedRows(header, false), QStringList{u"area"_s});
    EXPECT_EQ(definedRows(header, true), QStringList{u"x"_s});
    EXPECT_EQ(listedRows(header, u"rows"_s), (QStringList{u"area"_s, u"color"_s}));
    EXPECT_EQ(listedRows(header, u"working"_s), QStringList{u"x"_s});
    EXPECT_EQ(tableName(header), u"sample"_s);
}
