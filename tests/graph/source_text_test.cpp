#include "graph/source_text.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;

namespace {

QByteArray lineOf(const QByteArray &text, qsizetype offset)
{
    return SourceText(text).lineOf(offset).toByteArray();
}

} // namespace

namespace ORR::Graph {

void PrintTo(const SourcePlace &place, std::ostream *out)
{
    *out << place.line << ':' << place.column;
}

} // namespace ORR::Graph

TEST(SourceText, line_ends_of_all_kinds_become_line_feeds)
{
    EXPECT_EQ(withLineFeeds("a\r\nb\rc\nd"), "a\nb\nc\nd");
    EXPECT_EQ(withLineFeeds("\r\r\n\n\r"), "\n\n\n\n");
    EXPECT_EQ(withLineFeeds("\r"), "\n");
    EXPECT_EQ(withLineFeeds(""), "");
    const QByteArray plain("a\nb");
    EXPECT_EQ(withLineFeeds(plain).constData(), plain.constData()) << "shared";
}

TEST(SourceText, lines_and_columns_count_from_one)
{
    SourceText text("ab\r\nc\n\nd");
    EXPECT_EQ(text.placeOf(0), (SourcePlace{1, 1}));
    EXPECT_EQ(text.placeOf(1), (SourcePlace{1, 2}));
    EXPECT_EQ(text.placeOf(2), (SourcePlace{1, 3})) << "the line feed itself";
    EXPECT_EQ(text.placeOf(3), (SourcePlace{2, 1}));
    EXPECT_EQ(text.placeOf(5), (SourcePlace{3, 1}));
    EXPECT_EQ(text.placeOf(6), (SourcePlace{4, 1}));
    EXPECT_EQ(text.placeOf(7), (SourcePlace{4, 2})) << "the end";
    EXPECT_EQ(text.placeOf(99), (SourcePlace{4, 2}));
    EXPECT_EQ(SourceText("").placeOf(0), (SourcePlace{1, 1}));
}

TEST(SourceText, columns_are_characters)
{
    // Two, three and four bytes.
    SourceText text("\xc3\xa4\xe2\x82\xac\xf0\x9f\x8e\x88x");
    EXPECT_EQ(text.placeOf(2), (SourcePlace{1, 2}));
    EXPECT_EQ(text.placeOf(5), (SourcePlace{1, 3}));
    EXPECT_EQ(text.placeOf(7), (SourcePlace{1, 3})) << "within a character";
    EXPECT_EQ(text.placeOf(9), (SourcePlace{1, 4}));
    EXPECT_EQ(text.placeOf(10), (SourcePlace{1, 5}));
}

TEST(SourceText, places_may_be_asked_for_in_any_order)
{
    SourceText text("a\nb\nc");
    EXPECT_EQ(text.placeOf(4), (SourcePlace{3, 1}));
    EXPECT_EQ(text.placeOf(0), (SourcePlace{1, 1}));
    EXPECT_EQ(text.placeOf(2), (SourcePlace{2, 1}));
    EXPECT_EQ(text.placeOf(2), (SourcePlace{2, 1}));
}

TEST(SourceText, the_line_of_a_place_is_without_its_end)
{
    EXPECT_EQ(lineOf("ab\r\ncd\n", 0), "ab");
    EXPECT_EQ(lineOf("ab\r\ncd\n", 2), "ab");
    EXPECT_EQ(lineOf("ab\r\ncd\n", 4), "cd");
    EXPECT_EQ(lineOf("ab\r\ncd\n", 6), "");
    EXPECT_EQ(lineOf("ab\ncd", 5), "cd");
    EXPECT_EQ(lineOf("", 0), "");
    SourceText text("ab\ncd");
    EXPECT_EQ(text.lineOf(0), "ab");
    EXPECT_EQ(text.lineOf(1), "ab");
    EXPECT_EQ(text.lineOf(3), "cd");
    EXPECT_EQ(text.lineOf(1), "ab");
}
