#include "drawing/toolkit.h"

#include "support/golden.h"

#include <gtest/gtest.h>

#include <QtGlobal>

using namespace ORR::Drawing;

namespace {

void endByFatalMessage()
{
    prepareToolkit();
    qFatal("no \x1b]0;title\x07\xC2\x9B word");
}

} // namespace

TEST(Toolkit, ends_with_a_message_that_no_terminal_obeys)
{
    EXPECT_EXIT(endByFatalMessage(), testing::ExitedWithCode(1),
                "^no \\\\x1b]0;title\\\\x07\\\\x9b word\n$");
}
