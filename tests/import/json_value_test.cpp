#include "companion/import/reading/json_value.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;

namespace {

// The text of a string of JSON that holds these bytes.
QByteArray jsonStringOf(const QByteArray &bytes)
{
    std::optional<ImportFault> fault;
    const auto document = JsonDocument::read('"' + bytes + '"', "in", &fault);
    return document ? document->root().bytes() : "fault: " + fault->sentence.toUtf8();
}

// "@3 $.a: what is wrong", up to a semicolon.
std::string jsonFault(const QByteArray &text)
{
    std::optional<ImportFault> fault;
    if (JsonDocument::read(text, "in", &fault))
        return "none";
    const QByteArray told = fault->sentence.toUtf8();
    return '@' + std::to_string(fault->place.offset) + ' ' + fault->place.path.toStdString() + ": "
        + told.first(told.contains(';') ? told.indexOf(';') : told.size()).toStdString();
}

} // namespace

TEST(JsonValue, takes_bytes_that_are_no_utf8_for_latin1)
{
    EXPECT_EQ(jsonStringOf("caf\xe9.c"), "caf\xc3\xa9.c");
    EXPECT_EQ(jsonStringOf("\xe8"), "\xc3\xa8");
    EXPECT_EQ(jsonStringOf("\x80\xbf"), "\xc2\x80\xc2\xbf");
    EXPECT_EQ(jsonStringOf("\xfe\xff"), "\xc3\xbe\xc3\xbf");
    EXPECT_EQ(jsonStringOf("\xc0\xaf"), "\xc3\x80\xc2\xaf"); // a longer form of "/"
    EXPECT_EQ(jsonStringOf("\xe0\x80\xaf"), "\xc3\xa0\xc2\x80\xc2\xaf");
    EXPECT_EQ(jsonStringOf("\xed\xa0\x80"), "\xc3\xad\xc2\xa0\xc2\x80"); // half of a pair
    EXPECT_EQ(jsonStringOf("\xf4\x90\x80\x80"), "\xc3\xb4\xc2\x90\xc2\x80\xc2\x80");
    EXPECT_EQ(jsonStringOf("\xe2\x82"), "\xc3\xa2\xc2\x82"); // cut off
    EXPECT_EQ(jsonStringOf("\xe2\xc3\xa9"), "\xc3\xa2\xc3\xa9"); // whole behind what is cut off
}

TEST(JsonValue, leaves_utf8_as_it_is)
{
    for (const char *text : {"a", "\xc2\x80", "\xc3\xa9", "\xdf\xbf", "\xe0\xa0\x80",
                             "\xe2\x82\xac", "\xed\x9f\xbf", "\xef\xbf\xbf", "\xf0\x90\x80\x80",
                             "\xf0\x9f\x98\x80", "\xf3\xbf\xbf\xbf", "\xf4\x8f\xbf\xbf"})
        EXPECT_EQ(jsonStringOf(text), text);
}

TEST(JsonValue, tells_bytes_of_the_text_whatever_it_holds)
{
    std::optional<ImportFault> fault;
    const auto document =
        JsonDocument::read("{\"\xe9\xe9\": 1, \"b\": [\"\xff\", 2]}", "in", &fault);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->root()["\xc3\xa9\xc3\xa9"].offset(), 7);
    EXPECT_EQ(document->root()["b"].first().next().offset(), 21);
    EXPECT_EQ(jsonFault("[\"\xe9\xe9\", x]"), jsonFault("[\"ee\", x]"));
    EXPECT_EQ(jsonFault("[\xe9]").substr(0, 4), "@2 $");
}

TEST(JsonValue, tells_the_path_of_a_number_beyond_double)
{
    const std::string sentence = ": a number is beyond what can be held";
    EXPECT_EQ(jsonFault(R"({"../a.c": {"blank": 1, "code": 1e999}})"),
              "@32 $.../a.c.code" + sentence);
    EXPECT_EQ(jsonFault(R"({"a": [1, {}, -1e999]})"), "@14 $.a[2]" + sentence);
    EXPECT_EQ(jsonFault("1e999"), "@0 $" + sentence);
}
