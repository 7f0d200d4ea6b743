// How a worker comes into the world, with a shell as the worker.
#include "workers/message.h"
#include "workers/socket_pair.h"
#include "workers/worker_start.h"

#include <gtest/gtest.h>

#include <csignal>

#include <fcntl.h>
#include <sys/wait.h>

using namespace ORR::Workers;

namespace {

// A shell that runs a script to its end.
class Shell
{
public:
    explicit Shell(const std::string &script, bool isApart = false)
    {
        EXPECT_EQ(startWorker({"/bin/sh", {"a name", "-c", script}, isApart}, &had, &process), 0);
        EXPECT_GT(had.socket, STDERR_FILENO);
        EXPECT_GT(had.lastWords, STDERR_FILENO);
        if (process > 0)
            ::waitpid(process, &status, 0);
    }
    ~Shell() { closeDescriptors(&had); }
    Shell(const Shell &) = delete;
    Shell &operator=(const Shell &) = delete;

    std::string said() const { return lastWords(had.lastWords); }

    WorkerDescriptors had;
    pid_t process = -1;
    int status = -1;
};

} // namespace

TEST(WorkerStart, connects_standard_input)
{
    const Shell shell("echo hello >&0");
    EXPECT_EQ(shell.status, 0);
    std::string heard(100, '\0');
    heard.resize(std::size_t(::recv(shell.had.socket, heard.data(), heard.size(), 0)));
    EXPECT_EQ(heard, "hello\n");
    MessageReader reader;
    EXPECT_EQ(reader.receive(shell.had.socket, 0), MessageReader::Ended);
}

TEST(WorkerStart, leaves_nothing_behind_standard_output)
{
    EXPECT_EQ(Shell("test /dev/stdout -ef /dev/null").status, 0);
}

TEST(WorkerStart, keeps_the_last_line_that_was_said)
{
    EXPECT_EQ(Shell("echo first >&2; printf 'the\\033 last\\n\\n' >&2").said(), "the  last");
    EXPECT_EQ(Shell(":").said(), "");
    EXPECT_EQ(Shell("head -c 9000 /dev/zero | tr '\\0' x >&2; echo >&2; echo end >&2").said(),
              "end");
}

TEST(WorkerStart, calls_the_program_by_the_name_that_it_is_told)
{
    EXPECT_EQ(Shell("tr '\\0' '\\n' </proc/$$/cmdline | head -n 1 >&2").said(), "a name");
}

TEST(WorkerStart, lets_signals_be_as_at_a_start)
{
    sigset_t blocked;
    sigset_t former;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGUSR1);
    ::sigprocmask(SIG_BLOCK, &blocked, &former);
    std::signal(SIGUSR2, SIG_IGN);
    const Shell shell("grep -E '^Sig(Blk|Ign):' /proc/$$/status | tr -d '\\n\\t' >&2");
    std::signal(SIGUSR2, SIG_DFL);
    ::sigprocmask(SIG_SETMASK, &former, nullptr);
    // The ends of both sets: the C library keeps two signals beyond for itself.
    const std::string said = shell.said();
    ASSERT_EQ(said.size(), std::string("SigBlk:0123456789abcdefSigIgn:0123456789abcdef").size());
    EXPECT_EQ(said.substr(16, 7), "0000000");
    EXPECT_EQ(said.substr(said.size() - 7), "0000000");
}

TEST(WorkerStart, closes_what_programs_inherit_only_for_one_that_is_apart)
{
    const SocketPair sockets;
    const int inherited = ::fcntl(sockets[0], F_DUPFD, 9); // not closed by `exec`
    ASSERT_NE(inherited, -1);
    const std::string isOpen = "test -e /proc/$$/fd/" + std::to_string(inherited);
    EXPECT_EQ(Shell(isOpen).status, 0);
    EXPECT_NE(Shell(isOpen, true).status, 0);
    ::close(inherited);
}

TEST(WorkerStart, gives_a_session_only_to_one_that_is_apart)
{
    const std::string session = "cut -d ' ' -f 6 /proc/$$/stat >&2";
    EXPECT_EQ(Shell(session).said(), std::to_string(::getsid(0)));
    const Shell apart(session, true);
    EXPECT_EQ(apart.said(), std::to_string(apart.process));
}

TEST(WorkerStart, tells_why_there_is_none)
{
    WorkerDescriptors had;
    pid_t process = -1;
    EXPECT_EQ(startWorker({"/nowhere/to/be/found", {"x"}}, &had, &process), ENOENT);
    EXPECT_EQ(had.socket, -1);
    EXPECT_EQ(had.lastWords, -1);
}
