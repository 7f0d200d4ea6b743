// The worker's end: what this process has as its standard input meanwhile.
#include "workers/requests.h"
#include "workers/socket_pair.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

using namespace ORR::Workers;

namespace {

// As long as it lives, a socket is standard input.
class StandardInput
{
public:
    explicit StandardInput(int socket) : former(::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 3))
    {
        ::dup2(socket, STDIN_FILENO);
    }
    ~StandardInput()
    {
        ::dup2(former, STDIN_FILENO);
        ::close(former);
    }
    StandardInput(const StandardInput &) = delete;
    StandardInput &operator=(const StandardInput &) = delete;

private:
    int former;
};

} // namespace

TEST(Requests, are_answered_one_after_the_other)
{
    SocketPair sockets;
    const StandardInput input(sockets[1]);
    ASSERT_TRUE(Requests::areThere());
    Requests requests;
    sockets.close(1);
    for (const char *const text : {"one", "two"})
        ASSERT_EQ(OutgoingMessage({3, {text}}).send(sockets[0], 0), OutgoingMessage::Sent);
    for (const char *const text : {"one", "two"}) {
        const std::optional<Message> request = requests.next();
        ASSERT_TRUE(request);
        EXPECT_EQ(request->kind, 3U);
        EXPECT_EQ(request->fields, std::vector<std::string>({text}));
        EXPECT_TRUE(requests.answer({4, {text}}));
        MessageReader reader;
        EXPECT_EQ(reader.receive(sockets[0], 0), MessageReader::More);
        EXPECT_EQ(reader.next()->fields, std::vector<std::string>({text}));
    }
    sockets.close(0);
    EXPECT_FALSE(requests.next());
    EXPECT_FALSE(requests.answer({4, {"late"}}));
}

TEST(Requests, are_not_met_by_the_name_of_a_standard_stream)
{
    const SocketPair sockets;
    const StandardInput input(sockets[1]);
    const Requests requests;
    EXPECT_GT(requests.descriptor(), STDERR_FILENO);
    EXPECT_FALSE(Requests::areThere());
    struct stat nothing = {};
    struct stat here = {};
    ASSERT_EQ(::stat("/dev/null", &nothing), 0);
    ASSERT_EQ(::fstat(STDIN_FILENO, &here), 0);
    EXPECT_EQ(here.st_rdev, nothing.st_rdev);
    EXPECT_EQ(::fcntl(requests.descriptor(), F_GETFD), FD_CLOEXEC);
}
