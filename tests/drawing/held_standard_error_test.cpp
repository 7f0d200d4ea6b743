#include "drawing/held_standard_error.h"

#include "output/files/descriptor.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <unistd.h>

using namespace ORR;
using namespace ORR::Drawing;

TEST(HeldStandardError, leaves_a_way_out)
{
    int ends[2] = {-1, -1};
    ASSERT_EQ(::pipe(ends), 0);
    const int real = ::dup(STDERR_FILENO);
    ::dup2(ends[1], STDERR_FILENO);
    {
        const HeldStandardError held;
        Graph::writeToEnd(STDERR_FILENO, "unheard ");
        Graph::writeToEnd(HeldStandardError::messages(), "message ");
        EXPECT_EQ(held.text(), "unheard ");
    }
    Graph::writeToEnd(STDERR_FILENO, "afterwards");
    ::dup2(real, STDERR_FILENO);
    ::close(real);
    char said[100] = {};
    EXPECT_EQ(::read(ends[0], said, sizeof said), 18);
    EXPECT_STREQ(said, "message afterwards");
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST(HeldStandardError, starts_empty_and_is_copied_as_far_as_there_is_room)
{
    char buffer[4] = {};
    for (int i = 0; i < 2; ++i) {
        const HeldStandardError held;
        EXPECT_EQ(held.text(), "");
        Graph::writeToEnd(STDERR_FILENO, "unheard");
        EXPECT_EQ(HeldStandardError::copyText(buffer, sizeof buffer), 4U);
        EXPECT_EQ(QByteArray(buffer, sizeof buffer), "unhe");
    }
    EXPECT_EQ(HeldStandardError::copyText(buffer, sizeof buffer), 0U);
}
