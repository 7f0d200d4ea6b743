#include "driver/standard_streams.h"

#include "support/golden.h"

#include <gtest/gtest.h>

#include <thread>

#include <fcntl.h>
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
