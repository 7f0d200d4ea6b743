#include "device/pairwise_font.h"

#include "device/made_font.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;

namespace {

// The font with one table put in place of its own, or beside them.
PairwiseFont withTable(const QByteArray &name, const QByteArray &table)
{
    FontTables tables = tablesOfSans();
    tables.insert(name, table);
    const QRawFont font = fontOf(tables);
    EXPECT_TRUE(font.isValid());
    return pairwiseFont(font);
}

// The coverage of one glyph, as a range.
QByteArray ranged(int glyph)
{
    return shorts({2, 1, glyph, glyph, 0});
}

// f and i become another glyph.
QByteArray ligature()
{
    return shorts({1, 8, 1, 14}) + listed(glyphOf(u'f')) + shorts({1, 4}) // one set of one
        + shorts({glyphOf(u'A'), 2, glyphOf(u'i')});
}

// The characters that are missing.
std::string missing(const PairwiseFont &font)
{
    std::string characters;
    for (char c = ' '; c <= '~'; ++c) {
        if (!font.characters.test(size_t(c)))
            characters += c;
    }
    return characters;
}

} // namespace

TEST(PairwiseFont, tells_of_all_characters_where_a_font_has_only_kerning)
{
    const PairwiseFont font = pairwiseFont(fontOf(tablesOfSans()));
    EXPECT_EQ(missing(font), "");
    EXPECT_FALSE(font.characters.test('\n'));
    EXPECT_TRUE(font.needsFractions);
}

TEST(PairwiseFont, needs_no_fractions_without_a_table_of_kerning)
{
    FontTables tables = tablesOfSans();
    tables.remove("kern");
    EXPECT_FALSE(pairwiseFont(fontOf(tables)).needsFractions);
}

TEST(PairwiseFont, leaves_out_what_a_ligature_begins_with)
{
    EXPECT_EQ(missing(withTable("GSUB", lookupTable(4, 0, ligature()))), "f");
}

TEST(PairwiseFont, leaves_out_what_a_substitution_replaces)
{
    EXPECT_EQ(
        missing(withTable("GSUB", lookupTable(1, 0, shorts({1, 6, 1}) + ranged(glyphOf(u'g'))))),
        "g");
}

TEST(PairwiseFont, leaves_out_what_a_context_begins_with)
{
    const int glyph = glyphOf(u'c');
    const QByteArray plain = shorts({3, 1, 0, 8}) + listed(glyph);
    EXPECT_EQ(missing(withTable("GSUB", lookupTable(5, 0, plain))), "c");
    EXPECT_EQ(missing(withTable("GPOS", lookupTable(7, 0, plain))), "c");
    // With one glyph behind it, which is another one.
    const QByteArray chained =
        shorts({3, 1, 14, 1, 20, 0, 0}) + listed(glyphOf(u'x')) + listed(glyph);
    EXPECT_EQ(missing(withTable("GSUB", lookupTable(6, 0, chained))), "c");
    EXPECT_EQ(missing(withTable("GPOS", lookupTable(8, 0, chained))), "c");
}

TEST(PairwiseFont, passes_over_features_that_a_text_has_to_ask_for)
{
    for (const char *name : {"dlig", "subs", "frac", "ss07", "cv31"})
        EXPECT_EQ(missing(withTable("GSUB", lookupTable(4, 0, ligature(), name))), "") << name;
    for (const char *name : {"liga", "calt", "ssab", "cvvv", "what"})
        EXPECT_EQ(missing(withTable("GSUB", lookupTable(4, 0, ligature(), name))), "f") << name;
}

TEST(PairwiseFont, heeds_a_required_feature_whatever_its_name)
{
    EXPECT_EQ(missing(withTable("GSUB", lookupTable(4, 0, ligature(), "dlig", 0))), "f");
    EXPECT_EQ(missing(withTable("GSUB", lookupTable(4, 0, ligature(), "dlig", 1))), "");
}

TEST(PairwiseFont, heeds_all_lookups_where_features_vary)
{
    // Version 1.1, which has an offset more.
    QByteArray table = lookupTable(4, 0, ligature(), "dlig");
    table = shorts({1, 1}) + table.sliced(4, 6) + longNumber(0) + table.sliced(10);
    for (const int at : {4, 6, 8})
        table[at + 1] = char(table.at(at + 1) + 4);
    EXPECT_EQ(missing(withTable("GSUB", table)), "");
    table[13] = 1;
    EXPECT_EQ(missing(withTable("GSUB", table)), "f");
}

TEST(PairwiseFont, looks_behind_extensions)
{
    const QByteArray extension = shorts({1, 4}) + longNumber(8);
    EXPECT_EQ(missing(withTable("GSUB", lookupTable(7, 0, extension + ligature()))), "f");
}

TEST(PairwiseFont, leaves_out_first_letters_of_pairs_that_move_more_than_the_second_one)
{
    const auto pair = [](int secondValue) {
        return shorts({1, 10, 4, secondValue, 0}) + listed(glyphOf(u'T'));
    };
    constexpr int ignoreBases = 2;
    constexpr int ignoreMarks = 8;
    EXPECT_EQ(missing(withTable("GPOS", lookupTable(2, 0, pair(0)))), "");
    EXPECT_EQ(missing(withTable("GPOS", lookupTable(2, ignoreMarks, pair(0)))), "");
    EXPECT_EQ(missing(withTable("GPOS", lookupTable(2, 0, pair(4)))), "T");
    EXPECT_EQ(missing(withTable("GPOS", lookupTable(2, ignoreBases, pair(0)))), "T");
}

TEST(PairwiseFont, leaves_out_marks)
{
    const int glyph = glyphOf(u'^');
    const QByteArray head = shorts({1, 0, 12, 0, 0, 0});
    EXPECT_EQ(missing(withTable("GDEF", head + shorts({1, glyph, 1, 3}))), "^");
    EXPECT_EQ(missing(withTable("GDEF", head + shorts({2, 1, glyph, glyph, 3}))), "^");
    EXPECT_EQ(missing(withTable("GDEF", head + shorts({2, 1, glyph, glyph, 1}))), "");
}

TEST(PairwiseFont, tells_nothing_where_a_table_ends_too_soon)
{
    const QByteArray whole = lookupTable(4, 0, ligature());
    // Up to the end of its coverage; the rest of the ligature is not looked at.
    const qsizetype lookedAt = whole.size() - 10;
    for (qsizetype size = 1; size < lookedAt; ++size)
        EXPECT_TRUE(withTable("GSUB", whole.first(size)).characters.none()) << size;
    EXPECT_TRUE(withTable("GSUB", whole.first(lookedAt)).characters.any());
}

TEST(PairwiseFont, tells_nothing_of_formats_that_it_does_not_know)
{
    EXPECT_TRUE(withTable("GSUB", lookupTable(9, 0, ligature())).characters.none());
    EXPECT_TRUE(withTable("GSUB", lookupTable(4, 0, shorts({4, 8, 0, 0}))).characters.none());
    EXPECT_TRUE(withTable("GSUB", shorts({2, 0, 10, 12, 14, 0, 0, 0})).characters.none());
    EXPECT_TRUE(withTable("kern", longNumber(0x10000) + longNumber(0)).characters.none());
    EXPECT_TRUE(withTable("kern", shorts({0, 2, 0, 14, 1, 0, 0})).characters.none());
}

TEST(PairwiseFont, tells_nothing_of_other_ways_to_shape)
{
    for (const char *name : {"Silf", "morx", "mort", "kerx", "trak"})
        EXPECT_TRUE(withTable(name, shorts({1, 0})).characters.none()) << name;
    EXPECT_TRUE(pairwiseFont(QRawFont()).characters.none());
}
