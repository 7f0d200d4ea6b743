#include "companion/watch/check_process.h"

#include "companion/check/check_text.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <exception>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ORR::Companion {

namespace {

constexpr int checkFailed = 1;

// The parent ends it, not the terminal. It holds no end of a pipe that others wait at, and says
// nothing by itself: what the libraries of pictures complain about is no finding.
void settleChild(int answers, pid_t parent)
{
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGHUP, SIG_IGN);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent)
        std::_Exit(checkFailed);
    ::dup2(answers, STDOUT_FILENO);
    ::dup2(::open("/dev/null", O_RDWR | O_CLOEXEC), STDERR_FILENO);
    ::close_range(STDERR_FILENO + 1, ~0U, 0);
}

bool printFindings(const CheckTask &task)
{
    try {
        const QString engine = task.engine.isEmpty() ? engineNamedBy(task.bytes) : task.engine;
        const QList<Finding> findings = checkText(task.bytes, {.engine = engine, .isLast = true});
        return Graph::writeToEnd(STDOUT_FILENO, findingsAsText({task.file, findings}, task.form));
    } catch (const std::exception &) {
        return false;
    }
}

} // namespace

CheckProcess::CheckProcess(const CheckTask &task)
{
    int ends[2] = {-1, -1};
    const pid_t parent = ::getpid();
    if (::pipe2(ends, O_CLOEXEC) == 0)
        pid = ::fork();
    if (pid == 0) {
        settleChild(ends[1], parent);
        std::_Exit(printFindings(task) ? 0 : checkFailed);
    }
    const int fault = errno;
    answers = Graph::Descriptor(ends[0]);
    const Graph::Descriptor written(ends[1]);
    if (pid > 0) {
        ::fcntl(answers.number(), F_SETFL, O_NONBLOCK);
        return;
    }
    endFault = "the check can't be started: " + QByteArray(std::strerror(fault));
    answers.close();
}

CheckProcess::~CheckProcess()
{
    if (pid <= 0)
        return;
    ::kill(pid, SIGKILL);
    ::waitpid(pid, nullptr, 0);
}

void CheckProcess::advance()
{
    std::array<char, 65536> block;
    ssize_t count = 0;
    while (answers && (count = ::read(answers.number(), block.data(), block.size())) != 0) {
        if (count > 0)
            text.append(block.data(), count);
        else if (errno != EINTR)
            return;
    }
    if (answers)
        bury();
}

void CheckProcess::bury()
{
    answers.close();
    int status = 0;
    while (::waitpid(pid, &status, 0) == -1 && errno == EINTR) { }
    pid = -1;
    if (WIFSIGNALED(status))
        endFault = "the check was ended by signal " + QByteArray::number(WTERMSIG(status)) + " ("
            + ::strsignal(WTERMSIG(status)) + ')';
    else if (status != 0)
        endFault = "the check failed";
    if (!endFault.isEmpty())
        text.clear();
}

} // namespace ORR::Companion
