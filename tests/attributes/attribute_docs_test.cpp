// The pages of docs/ hold what the tables say.
#include "tools/attribute_docs.h"

#include "attributes/attribute_readers.h"
#include "layout/attribute_tables.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <QDir>

using namespace ORR::Docs;
using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

using enum AttributeElement;
using enum AttributeLookup;

constexpr AttributeWord sides[] = {{"top", "above"}, {"left|right", "beside"}};
constexpr NumberAttribute<Root, Node> width{"width"_attribute, Inherited, "points", "5", "a width"};
constexpr ChoiceAttribute<Edge> legend{"legend"_attribute, Own, "", "a side", sides};
constexpr const AttributeRow *rows[] = {&width, &legend};
constexpr AttributeTable table{"sample", rows, {}};

QDir docs()
{
    return QDir(QStringLiteral(ORR_TEST_FOLDER "/../../docs"));
}

QString page(const QString &name)
{
    return QString::fromUtf8(readTestFile(docs().filePath(name)));
}

} // namespace

TEST(AttributeDocs, say_what_the_tables_say)
{
    int withTables = 0;
    for (const QString &name : docs().entryList({u"*.md"_s}, QDir::Files)) {
        const QString text = page(name);
        const auto [renewed, failure] = renewedPage(text);
        EXPECT_EQ(failure, QString()) << name.toStdString();
        EXPECT_EQ(renewed, text) << name.toStdString()
                                 << " differs: run write_attribute_docs docs, and read the result";
        withTables += text.contains("<!-- attributes: "_L1);
    }
    EXPECT_GE(withTables, 4);
}

TEST(AttributeDocs, hold_every_table)
{
    QString all;
    for (const QString &name : docs().entryList({u"*.md"_s}, QDir::Files))
        all += page(name);
    for (const AttributeTable *listed : Layout::attributeTables()) {
        const QString marker = u"<!-- attributes: %1 -->"_s.arg(latin1(listed->reader));
        EXPECT_EQ(all.count(marker), 1) << marker.toStdString();
    }
    EXPECT_EQ(all.count("<!-- attributes: colors -->"_L1), 1);
}

TEST(AttributeDocs, have_a_line_for_each_attribute_and_then_the_words)
{
    EXPECT_EQ(attributeText(table),
              u"| Element | Attribute | Type | Default | Lookup | Meaning |\n"
              "| --- | --- | --- | --- | --- | --- |\n"
              "| root, node | `width` | number, points | 5 | root: own; node: default of its kind "
              "| a width |\n"
              "| edge | `legend` | choice: `top`, `left\\|right` | none | own | a side |\n"
              "\n"
              "| Element | Attribute | Word | Meaning |\n"
              "| --- | --- | --- | --- |\n"
              "| edge | `legend` | `top` | above |\n"
              "| edge | `legend` | `left\\|right` | beside |\n"_s);
}

TEST(AttributeDocs, name_eighteen_colours)
{
    EXPECT_EQ(colorText().count(u'\n'), 2 + 18);
    EXPECT_TRUE(colorText().contains("| `navy` | `#000080` |"_L1));
    EXPECT_TRUE(colorText().contains("| `none` | nothing is painted |"_L1));
}

TEST(RenewedPage, replaces_what_stands_between_the_markers_and_nothing_else)
{
    const QString before = u"above\n<!-- attributes: colors -->\nold\n<!-- end of attributes -->\n"
                           "between\n<!-- attributes: colors --><!-- end of attributes --> below"_s;
    const QString colors =
        u"<!-- attributes: colors -->\n\n"_s + colorText() + u"\n<!-- end of attributes -->"_s;
    const auto [text, failure] = renewedPage(before);
    EXPECT_EQ(failure, QString());
    EXPECT_EQ(text, u"above\n"_s + colors + u"\nbetween\n"_s + colors + u" below"_s);
    EXPECT_EQ(renewedPage(text).text, text);
}

TEST(RenewedPage, is_the_page_where_there_is_no_marker)
{
    EXPECT_EQ(renewedPage(u"no table"_s).text, u"no table"_s);
    EXPECT_EQ(renewedPage(u""_s).failure, QString());
}

TEST(RenewedPage, refuses_an_unknown_table_and_a_marker_without_an_end)
{
    const QString unknown = u"<!-- attributes: nothing -->\n<!-- end of attributes -->"_s;
    EXPECT_EQ(renewedPage(unknown).failure, u"there is no table \"nothing\""_s);
    EXPECT_EQ(renewedPage(unknown).text, unknown);
    EXPECT_EQ(renewedPage(u"x <!-- attributes: colors -->\n"_s).failure,
              u"the marker at 2 has no end"_s);
    EXPECT_EQ(renewedPage(u"<!-- attributes: colors"_s).failure, u"the marker at 0 has no end"_s);
}
