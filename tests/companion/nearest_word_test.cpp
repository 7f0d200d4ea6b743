#include "companion/findings/nearest_word.h"

#include "support/golden.h"

#include <QElapsedTimer>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

const QStringList words{u"area"_s,     u"label"_s, u"fillcolor"_s, u"fontcolor"_s,
                        u"fontsize"_s, u"x0"_s,    u"r"_s};

} // namespace

TEST(EditDistance, counts_what_is_inserted_left_out_exchanged_and_swapped)
{
    EXPECT_EQ(editDistance(u"label", u"label"), 0);
    EXPECT_EQ(editDistance(u"lable", u"label"), 1);
    EXPECT_EQ(editDistance(u"labl", u"label"), 1);
    EXPECT_EQ(editDistance(u"labbel", u"label"), 1);
    EXPECT_EQ(editDistance(u"lapel", u"label"), 1);
    EXPECT_EQ(editDistance(u"", u"label"), 5);
    EXPECT_EQ(editDistance(u"label", u""), 5);
    EXPECT_EQ(editDistance(u"kitten", u"sitting"), 3);
}

TEST(EditDistance, is_the_restricted_one)
{
    EXPECT_EQ(editDistance(u"ca", u"abc"), 3); // 2 where a swapped pair may be edited again
}

TEST(NearestWord, is_found_with_a_letter_wrong_or_two)
{
    EXPECT_EQ(nearestWord(u"lable"_s, words), u"label"_s);
    EXPECT_EQ(nearestWord(u"fillcolour"_s, words), u"fillcolor"_s);
    EXPECT_EQ(nearestWord(u"frontsice"_s, words), u"fontsize"_s);
    EXPECT_EQ(nearestWord(u"aera"_s, words), u"area"_s);
    EXPECT_EQ(nearestWord(u"x1"_s, words), u"x0"_s);
}

TEST(NearestWord, is_found_in_another_case)
{
    EXPECT_EQ(nearestWord(u"Label"_s, words), u"label"_s);
    EXPECT_EQ(nearestWord(u"FONTCOLOR"_s, words), u"fontcolor"_s);
}

TEST(NearestWord, is_the_first_of_several)
{
    EXPECT_EQ(nearestWord(u"bat"_s, {u"cat"_s, u"rat"_s}), u"cat"_s);
    EXPECT_EQ(nearestWord(u"bat"_s, {u"rat"_s, u"cat"_s}), u"rat"_s);
}

TEST(NearestWord, is_nothing_where_none_is_near)
{
    for (const QString &text : {u""_s, u"q"_s, u"zzzzz"_s, u"colorscheme"_s, u"aaaa"_s})
        EXPECT_EQ(nearestWord(text, words), QString()) << text.toStdString();
    EXPECT_EQ(nearestWord(u"label"_s, {}), QString());
}

TEST(NearestWord, costs_nothing_for_a_long_text)
{
    const QString text(10'000'000, u'l');
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(nearestWord(text, words), QString());
    EXPECT_LT(timer.elapsed(), 1000); // the tables of one word alone would take a second
}

TEST(DidYouMean, asks_or_is_silent)
{
    EXPECT_EQ(didYouMean(u"lable"_s, words), u"did you mean 'label'?"_s);
    EXPECT_EQ(didYouMean(u"zzzzz"_s, words), QString());
}
