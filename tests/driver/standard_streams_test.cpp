#include "driver/standard_streams.h"

#include "support/golden.h"

#include <gtest/gtest.h>

#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace ORR::Driver;

namespace {

struct Pipe
{
    explicit Pipe(int flags = 0) { opened = ::pipe2(ends, flags) == 0; }
    ~Pipe()
    {
        ::close(ends[0]);
        ::close(ends[1]);
    }
    void closeWriter()
    {
        ::close(ends[1]);
        ends[1] = -1;
    }

    int ends[2] = {-1, -1};
    bool opened = false;
};

constexpr qsizetype noLimit = 1 << 30;

} // namespace

TEST(StandardStreams, read_to_end_takes_what_a_pipe_gives_in_pieces)
{
    Pipe pipe;
    const QByteArray piece(50'000, 'x');
    std::thread writer([&] {
        for (int i = 0; i < 10; ++i)
            writeToEnd(pipe.ends[1], piece);
        pipe.closeWriter();
    });
    const auto bytes = readToEnd(pipe.ends[0], noLimit);
    writer.join();
    EXPECT_EQ(bytes, QByteArray(500'000, 'x'));
}

TEST(StandardStreams, non_blocking_pipe_is_waited_for_at_both_ends)
{
    Pipe pipe(O_NONBLOCK);
    const QByteArray sent(1'000'000, 'y');
    bool written = false;
    std::thread writer([&] {
        written = writeToEnd(pipe.ends[1], sent);
        pipe.closeWriter();
    });
    const auto received = readToEnd(pipe.ends[0], noLimit);
    writer.join();
    EXPECT_TRUE(written);
    EXPECT_EQ(received, sent);
}

TEST(StandardStreams, reading_a_directory_fails)
{
    const int folder = ::open("/tmp", O_RDONLY);
    EXPECT_EQ(readToEnd(folder, noLimit), std::nullopt);
    ::close(folder);
}

TEST(StandardStreams, reading_stops_behind_the_limit)
{
    const int endless = ::open("/dev/zero", O_RDONLY);
    EXPECT_EQ(readToEnd(endless, 100'000), QByteArray(100'001, '\0'));
    ::close(endless);
}

TEST(StandardStreams, writing_to_a_full_disk_fails)
{
    const int full = ::open("/dev/full", O_WRONLY);
    EXPECT_FALSE(writeToEnd(full, "x"));
    EXPECT_TRUE(writeToEnd(full, ""));
    ::close(full);
}

TEST(StandardStreams, held_standard_error_leaves_a_way_out)
{
    Pipe pipe;
    const int real = ::dup(STDERR_FILENO);
    ::dup2(pipe.ends[1], STDERR_FILENO);
    {
        const HeldStandardError held;
        writeToEnd(STDERR_FILENO, "unheard ");
        writeToEnd(HeldStandardError::messages(), "message ");
        EXPECT_EQ(held.text(), "unheard ");
    }
    writeToEnd(STDERR_FILENO, "afterwards");
    ::dup2(real, STDERR_FILENO);
    ::close(real);
    pipe.closeWriter();
    EXPECT_EQ(readToEnd(pipe.ends[0], noLimit), QByteArray("message afterwards"));
}

TEST(StandardStreams, held_standard_error_starts_empty_and_is_copied_as_far_as_there_is_room)
{
    char buffer[4] = {};
    for (int i = 0; i < 2; ++i) {
        const HeldStandardError held;
        EXPECT_EQ(held.text(), "");
        writeToEnd(STDERR_FILENO, "unheard");
        EXPECT_EQ(HeldStandardError::copyText(buffer, sizeof buffer), 4U);
        EXPECT_EQ(QByteArray(buffer, sizeof buffer), "unhe");
    }
    EXPECT_EQ(HeldStandardError::copyText(buffer, sizeof buffer), 0U);
}

TEST(StandardStreams, files_that_can_be_opened_are_counted_by_what_is_free)
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
