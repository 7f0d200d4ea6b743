#include "companion/produce/label_ruler.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

TEST(LabelRuler, leaves_a_line_that_fits_as_it_is)
{
    const LabelRuler ruler(10);
    EXPECT_EQ(ruler.elided(u"short"_s, ruler.widthOf(u"short"_s)), u"short"_s);
}

TEST(LabelRuler, leaves_out_the_middle_of_one_that_does_not)
{
    const LabelRuler ruler(10);
    const QString line = u"a_name_that_is_much_too_long"_s;
    const int width = ruler.widthOf(line) / 2;
    const QString cut = ruler.elided(line, width);
    EXPECT_LE(ruler.widthOf(cut), width);
    EXPECT_TRUE(cut.contains(u'\u2026'));
    EXPECT_TRUE(cut.startsWith(u"a_n"_s));
    EXPECT_TRUE(cut.endsWith(u"ng"_s));
}

TEST(LabelRuler, says_nothing_rather_than_a_few_letters)
{
    const LabelRuler ruler(10);
    EXPECT_EQ(ruler.elided(u"anything"_s, 8), QString());
    EXPECT_EQ(ruler.elided(u"anything"_s, -5), QString());
}

TEST(LabelRuler, parts_no_pair_of_surrogates)
{
    const LabelRuler ruler(10);
    const QString line =
        QString::fromUcs4(U"\U0001F333\U0001F333\U0001F333\U0001F333", 4).repeated(9);
    for (int width = 10; width < ruler.widthOf(line); width += 7) {
        const QString cut = ruler.elided(line, width, 1);
        for (qsizetype i = 0; i < cut.size(); ++i) {
            if (cut[i].isHighSurrogate())
                ASSERT_TRUE(++i < cut.size() && cut[i].isLowSurrogate());
            else
                ASSERT_FALSE(cut[i].isLowSurrogate());
        }
    }
}

TEST(LabelRuler, measures_a_huge_line_by_what_is_left_of_it)
{
    const LabelRuler ruler(10);
    EXPECT_LE(ruler.widthOf(ruler.elided(QString(5'000'000, u'x'), 100)), 100);
}

TEST(LabelRuler, wraps_a_name_where_it_is_put_together)
{
    const LabelRuler ruler(9);
    const QSize room(ruler.widthOf(u"source_text_"_s), 3 * ruler.lineHeight() + 4);
    EXPECT_EQ(ruler.wrapped(u"source_text_reader"_s, room), u"source_text_\nreader"_s);
    EXPECT_EQ(ruler.wrapped(u"SourceTextReader"_s, room), u"SourceText\nReader"_s);
    EXPECT_EQ(ruler.wrapped(u"nothing.to.wrap"_s, {400, 40}), u"nothing.to.wrap"_s);
    EXPECT_EQ(ruler.wrapped(u"onelongwordwithoutparts"_s, room), QString());
    EXPECT_EQ(ruler.wrapped(u"a"_s, {100, 3}), QString());
}
