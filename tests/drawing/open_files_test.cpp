#include "drawing/open_files.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace ORR::Drawing;

TEST(OpenFiles, are_counted_by_what_is_free)
{
    rlimit former = {};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &former), 0);
    const int firstFree = ::open("/dev/null", O_RDONLY);
    ::close(firstFree);
    // All numbers below the first free one are taken.
    const rlimit few{static_cast<rlim_t>(firstFree) + 5, former.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    const bool five = canOpenFiles(5);
    const bool fiveAgain = canOpenFiles(5);
    const bool six = canOpenFiles(6);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &former), 0);
    EXPECT_TRUE(five);
    EXPECT_TRUE(fiveAgain) << "what was opened is not closed";
    EXPECT_FALSE(six);
}
