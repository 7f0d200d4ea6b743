#include "graph/recent_texts.h"

#include "support/guarded_text.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QList>

using namespace ORR::Graph;

namespace {

ShortText textOf(const QByteArray &bytes)
{
    return ShortText::of(bytes).value();
}

// With one place only, for which all texts contend.
struct Remembered
{
    RecentTexts<QByteArray, 1> texts;
    int made = 0;

    QByteArray of(const QByteArray &bytes)
    {
        return texts.of(textOf(bytes), [&] {
            ++made;
            return QByteArray(bytes.constData(), bytes.size());
        });
    }
};

} // namespace

TEST(ShortText, is_equal_exactly_for_equal_bytes)
{
    QList<QByteArray> texts{""};
    for (int length = 1; length <= ShortText::longest; ++length) {
        const QByteArray plain(length, 'a');
        texts += plain;
        for (int i = 0; i < length; ++i) {
            QByteArray other = plain;
            other[i] = 'b';
            texts += other;
        }
    }
    for (const QByteArray &a : texts) {
        for (const QByteArray &b : texts)
            EXPECT_EQ(textOf(a) == textOf(b), a == b) << a.constData() << ' ' << b.constData();
    }
}

TEST(ShortText, there_is_none_for_a_long_text)
{
    EXPECT_TRUE(ShortText::of(QByteArray(ShortText::longest, 'a')));
    EXPECT_FALSE(ShortText::of(QByteArray(ShortText::longest + 1, 'a')));
}

TEST(ShortText, knows_whether_all_is_ascii)
{
    for (int length = 1; length <= ShortText::longest; ++length) {
        const QByteArray plain(length, '\x7f');
        EXPECT_TRUE(textOf(plain).isAscii());
        for (int i = 0; i < length; ++i) {
            QByteArray other = plain;
            other[i] = '\x80';
            EXPECT_FALSE(textOf(other).isAscii()) << length << ' ' << i;
        }
    }
}

TEST(ShortText, reads_no_byte_beyond_the_text)
{
    for (int length = 1; length <= ShortText::longest; ++length) {
        const QByteArray plain(length, 'a');
        const GuardedText guarded(plain);
        EXPECT_EQ(ShortText::of(QByteArrayView(guarded.bytes())), textOf(plain));
    }
}

TEST(RecentTexts, shares_what_comes_again)
{
    Remembered remembered;
    EXPECT_EQ(remembered.of("a"), "a");
    const QByteArray second = remembered.of("a");
    EXPECT_EQ(second, "a");
    EXPECT_EQ(remembered.of("a").constData(), second.constData());
    EXPECT_EQ(remembered.made, 2);
}

TEST(RecentTexts, a_text_that_comes_once_pushes_out_nothing)
{
    Remembered remembered;
    for (int i = 0; i < 4; ++i)
        (void)remembered.of("often");
    const int before = remembered.made;
    EXPECT_EQ(remembered.of("once"), "once");
    EXPECT_EQ(remembered.of("twice"), "twice");
    EXPECT_EQ(remembered.of("often"), "often");
    EXPECT_EQ(remembered.made, before + 2);
}

TEST(RecentTexts, every_text_gets_what_it_is_made_into_whatever_came_before)
{
    Remembered remembered;
    unsigned state = 1;
    for (int i = 0; i < 10000; ++i) {
        state = state * 1664525U + 1013904223U;
        const QByteArray text(1, char('a' + (state >> 24U) % 5));
        ASSERT_EQ(remembered.of(text), text);
    }
}
