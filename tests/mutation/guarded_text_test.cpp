#include "support/guarded_text.h"

#include <gtest/gtest.h>

TEST(GuardedText, holds_the_text_and_its_nul)
{
    for (const qsizetype size : {0, 1, 4095, 4096, 4097, 8192}) {
        const QByteArray text(size, 'x');
        const GuardedText guarded(text);
        EXPECT_EQ(guarded.bytes(), text) << size;
        EXPECT_EQ(guarded.bytes().constData()[size], '\0') << size;
    }
}

TEST(GuardedTextDeathTest, a_read_behind_the_nul_crashes)
{
    for (const qsizetype size : {0, 1, 4095, 4096}) {
        const GuardedText guarded(QByteArray(size, 'x'));
        const volatile char *end = guarded.bytes().constData() + size;
        EXPECT_DEATH((void)end[1], "") << size;
    }
}
