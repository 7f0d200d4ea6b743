#include "companion/produce/number_words.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

using enum TreeMeaning::Unit;

TEST(NumberWords, count_in_threes)
{
    EXPECT_EQ(weightWords(0, Count), u"0"_s);
    EXPECT_EQ(weightWords(999, Count), u"999"_s);
    EXPECT_EQ(weightWords(1234, Count), u"1,234"_s);
    EXPECT_EQ(weightWords(1234567, Count), u"1,234,567"_s);
    EXPECT_EQ(weightWords(12.25, Count), u"12.3"_s);
    EXPECT_EQ(weightWords(1e300, Count), u"1e+300"_s);
}

TEST(NumberWords, have_bytes_in_the_unit_that_is_next)
{
    EXPECT_EQ(weightWords(812, Bytes), u"812 B"_s);
    EXPECT_EQ(weightWords(999.6, Bytes), u"1 kB"_s);
    EXPECT_EQ(weightWords(1234, Bytes), u"1.2 kB"_s);
    EXPECT_EQ(weightWords(12345, Bytes), u"12 kB"_s);
    EXPECT_EQ(weightWords(1234567890, Bytes), u"1.2 GB"_s);
    EXPECT_EQ(weightWords(1e30, Bytes), u"1,000,000,000,000 EB"_s);
}

TEST(NumberWords, have_times_in_one_unit_or_two)
{
    EXPECT_EQ(weightWords(0, Seconds), u"0 s"_s);
    EXPECT_EQ(weightWords(0.000012, Seconds), u"12 \u00b5s"_s);
    EXPECT_EQ(weightWords(0.34, Seconds), u"340 ms"_s);
    EXPECT_EQ(weightWords(0.9999, Seconds), u"1 s"_s);
    EXPECT_EQ(weightWords(1.24, Seconds), u"1.2 s"_s);
    EXPECT_EQ(weightWords(125, Seconds), u"2 min 5 s"_s);
    EXPECT_EQ(weightWords(4320, Seconds), u"1 h 12 min"_s);
}

TEST(NumberWords, have_shares_in_percent)
{
    EXPECT_EQ(percentWords(0), u"0 %"_s);
    EXPECT_EQ(percentWords(0.1234), u"12.3 %"_s);
    EXPECT_EQ(percentWords(0.00001), u"<0.1 %"_s);
    EXPECT_EQ(percentWords(1), u"100 %"_s);
}

TEST(NumberWords, name_only_what_has_no_unit)
{
    EXPECT_EQ(weightWithName(1200, {.weight = u"lines"_s}), u"1,200 lines"_s);
    EXPECT_EQ(weightWithName(1200, {.weight = u"size"_s, .unit = Bytes}), u"1.2 kB"_s);
}
