#include "graph/message_text.h"

#include "support/golden.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

TEST(MessageText, writes_control_characters_out)
{
    EXPECT_EQ(messageText(u"a\u001b[2J\u0007\u0000\u007f\u009b\u0085\n\t\r"_s),
              "a\\x1b[2J\\x07\\x00\\x7f\\x9b\\x85\\x0a\\x09\\x0d");
}

TEST(MessageText, keeps_everything_else)
{
    const QString text = u"node \"ä🎈\" \\x1b ' <> \u00a0 \u2028"_s;
    EXPECT_EQ(messageText(text), text);
    EXPECT_EQ(printableMessage(text), text);
}

TEST(MessageText, a_message_keeps_its_lines)
{
    EXPECT_EQ(printableMessage(u"one\ntwo\r\n\u001b\n"_s), "one\ntwo\\x0d\n\\x1b\n");
}
