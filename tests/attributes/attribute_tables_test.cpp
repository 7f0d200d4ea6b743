#include "layout/attribute_tables.h"

#include "support/golden.h"

#include <gtest/gtest.h>

#include <QSet>

#include <map>
#include <utility>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

std::string named(const AttributeTable &table, KnownAttribute name)
{
    return std::string(table.reader) + ": " + name.text().toStdString();
}

bool isSentence(std::string_view text)
{
    return !text.empty() && text.back() != '.' && text.find('\n') == std::string_view::npos;
}

} // namespace

TEST(AttributeTables, have_names_of_their_own)
{
    QSet<QString> names;
    for (const AttributeTable *table : attributeTables()) {
        EXPECT_FALSE(table->rows.empty()) << table->reader;
        const QString name(latin1(table->reader));
        EXPECT_FALSE(names.contains(name)) << table->reader;
        names += name;
    }
    EXPECT_TRUE(names.contains(u"paint"_s));
    EXPECT_TRUE(names.contains(u"umlseq"_s));
}

TEST(EngineTables, tell_the_charts_by_their_legends)
{
    for (const QString &chart : {u"flatbubble"_s, u"sunburst"_s, u"treemap"_s, u"bar"_s})
        EXPECT_TRUE(hasLegends(chart)) << chart.toStdString();
    for (const QString &other : {u"gftree"_s, u"gfdecl"_s, u"umlseq"_s, u"matrix"_s, u""_s, u"x"_s})
        EXPECT_FALSE(hasLegends(other)) << other.toStdString();
}

// Two rows for one reading would sooner or later say two things.
TEST(AttributeTables, name_each_attribute_of_an_element_once_for_a_lookup)
{
    for (const AttributeTable *table : attributeTables()) {
        std::map<std::pair<QString, AttributeLookup>, AttributeElements> seen;
        for (const AttributeRow *row : table->rows) {
            AttributeElements &elements = seen[{row->name.text(), row->lookup}];
            EXPECT_FALSE(elements & row->elements) << named(*table, row->name);
            elements |= row->elements;
        }
    }
}

TEST(AttributeTables, say_of_each_row_what_it_means_in_one_sentence)
{
    for (const AttributeTable *table : attributeTables()) {
        for (const AttributeRow *row : table->rows) {
            EXPECT_TRUE(row->elements) << named(*table, row->name);
            EXPECT_TRUE(isSentence(row->meaning)) << named(*table, row->name);
            for (const AttributeWord &word : row->words)
                EXPECT_TRUE(isSentence(word.meaning)) << named(*table, row->name) << word.word;
        }
        for (const WorkingRow *row : table->working) {
            EXPECT_TRUE(row->elements) << named(*table, row->name);
            EXPECT_TRUE(isSentence(row->meaning)) << named(*table, row->name);
        }
    }
}

TEST(AttributeTables, have_words_for_choices_and_for_nothing_else)
{
    for (const AttributeTable *table : attributeTables()) {
        for (const AttributeRow *row : table->rows) {
            const bool wanted =
                row->type == AttributeType::Choice || row->type == AttributeType::Words;
            EXPECT_EQ(!row->words.empty(), wanted) << named(*table, row->name);
        }
    }
}
