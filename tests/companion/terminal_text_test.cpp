#include "companion/findings/quoted_text.h"
#include "companion/findings/terminal_text.h"

#include "support/golden.h"

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

TEST(TerminalText, writes_out_what_a_terminal_obeys)
{
    EXPECT_EQ(terminalText(QByteArrayView("a\x1b[2J\x07\0\x7f\n\t\r", 11)),
              "a\\x1b[2J\\x07\\x00\\x7f\\x0a\\x09\\x0d");
    EXPECT_EQ(terminalText("\xc2\x9b"), "\\x9b");
    EXPECT_EQ(terminalText("\xe2\x80\xae\xe2\x80\xa8\xe2\x81\xa6"), "\\u202e\\u2028\\u2066");
}

TEST(TerminalText, writes_out_what_is_no_utf8)
{
    EXPECT_EQ(terminalText("a\xff\x80z"), "a\\xff\\x80z");
    EXPECT_EQ(terminalText("\xc0\xaf"), "\\xc0\\xaf"); // longer than it has to be
    EXPECT_EQ(terminalText("\xed\xa0\x80"), "\\xed\\xa0\\x80"); // half of a pair
    EXPECT_EQ(terminalText("\xf4\x90\x80\x80"), "\\xf4\\x90\\x80\\x80"); // beyond Unicode
    EXPECT_EQ(terminalText("\xfc\x84\x80\x80"), "\\xfc\\x84\\x80\\x80");
    EXPECT_EQ(terminalText("\xe6\xbc"), "\\xe6\\xbc"); // cut off
}

TEST(TerminalText, keeps_everything_else)
{
    const QByteArray text = "node \"\xc3\xa4\xf0\x9f\x8e\x88\" \\x1b ' <> \xe6\xbc\xa2";
    EXPECT_EQ(terminalText(text), text);
}

TEST(TerminalLine, keeps_its_tabs)
{
    EXPECT_EQ(terminalLine("\ta\x1b"), "\ta\\x1b");
}

TEST(BlanksFor, are_as_wide_as_the_text)
{
    EXPECT_EQ(blanksFor("abc"), "   ");
    EXPECT_EQ(blanksFor("a\tb"), " \t ");
    EXPECT_EQ(blanksFor("\xe6\xbc\xa2"), "  "); // a Han character
    EXPECT_EQ(blanksFor("\xf0\x9f\x8e\x88"), "  "); // a picture
    EXPECT_EQ(blanksFor("e\xcc\x81"), " "); // with an accent of its own
    EXPECT_EQ(blanksFor("\xc3\xa4"), " ");
    EXPECT_EQ(blanksFor("\x1b"), "    ");
    EXPECT_EQ(blanksFor("\xe2\x80\xae"), "      ");
    EXPECT_EQ(blanksFor(""), "");
}

TEST(QuotedText, is_cut_where_it_is_long)
{
    EXPECT_EQ(quotedText(u"lable"_s), u"'lable'"_s);
    EXPECT_EQ(quotedText(QString(60, u'x')), u'\'' + QString(60, u'x') + u'\'');
    EXPECT_EQ(quotedText(QString(61, u'x')), u'\'' + QString(60, u'x') + u"...'"_s);
}

TEST(QuotedText, is_not_cut_within_a_character)
{
    const QString text = QString(59, u'x') + u"🎈🎈"_s;
    EXPECT_EQ(quotedText(text), u'\'' + QString(59, u'x') + u"...'"_s);
}
