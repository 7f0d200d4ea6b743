#include "drawing/printable_bytes.h"

#include "graph/message_text.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <random>

using namespace ORR;

namespace {

QByteArray printable(const QByteArray &text)
{
    QByteArray written(text.size() * qsizetype(Drawing::longestPrintable), '?');
    written.truncate(static_cast<qsizetype>(Drawing::writePrintable(
        text.constData(), static_cast<std::size_t>(text.size()), written.data())));
    return written;
}

} // namespace

TEST(PrintableBytes, write_control_characters_out)
{
    EXPECT_EQ(printable("\x1b[31mred\x7f\t\n"), "\\x1b[31mred\\x7f\\x09\\x0a");
    EXPECT_EQ(printable(QByteArray("a\0b", 3)), "a\\x00b");
    EXPECT_EQ(printable("\xC2\x9B"
                        "31m"),
              "\\x9b31m");
}

TEST(PrintableBytes, leave_all_other_characters)
{
    const QByteArray text = "a \\ \xC2\xA0 \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80";
    EXPECT_EQ(printable(text), text);
    EXPECT_EQ(printable(""), "");
}

TEST(PrintableBytes, write_out_what_is_no_character)
{
    EXPECT_EQ(printable("\x9B"
                        "31m"),
              "\\x9b31m");
    EXPECT_EQ(printable("\xFF\xC0\x80"), "\\xff\\xc0\\x80");
    EXPECT_EQ(printable("\xE2\x82"), "\\xe2\\x82") << "cut off";
    EXPECT_EQ(printable("\xE2\x1b\x82"), "\\xe2\\x1b\\x82");
    EXPECT_EQ(printable("\xC2"), "\\xc2");
}

TEST(PrintableBytes, are_those_of_messages)
{
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i) {
        QString text;
        for (int k = 0; k < 8; ++k)
            text += QChar(static_cast<char16_t>(random() % (k % 2 ? 0x100 : 0xD800)));
        EXPECT_EQ(printable(text.toUtf8()), Graph::messageText(text).toUtf8());
    }
}

TEST(PrintableBytes, are_never_more_than_promised_nor_a_control_character)
{
    std::mt19937 random(2);
    for (int i = 0; i < 2000; ++i) {
        QByteArray text;
        for (int k = 0; k < 12; ++k)
            text += static_cast<char>(random());
        const QByteArray written = printable(text);
        EXPECT_LE(written.size(), text.size() * qsizetype(Drawing::longestPrintable));
        const QString read = QString::fromUtf8(written);
        EXPECT_EQ(Graph::messageText(read), read);
    }
}
