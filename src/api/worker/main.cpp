// The program that draws for the library, see worker_process.h. Its standard input is the socket,
// its standard error a file in memory that the library reads if the worker ends.
#include "api/worker/answer.h"
#include "drawing/environment.h"
#include "drawing/held_standard_error.h"
#include "drawing/sudden_end.h"
#include "drawing/toolkit.h"

#include <QCoreApplication>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace ORR::Api;
using namespace ORR::Drawing;

namespace {

constexpr int library = STDIN_FILENO;

// The socket, which waits as long as it takes.
struct Socket
{
    static bool write(const void *bytes, std::size_t count)
    {
        const char *next = static_cast<const char *>(bytes);
        while (count > 0) {
            const ssize_t sent = ::send(library, next, count, MSG_NOSIGNAL);
            if (sent == -1 && errno != EINTR)
                return false;
            if (sent > 0) {
                next += sent;
                count -= static_cast<std::size_t>(sent);
            }
        }
        return true;
    }

    static bool read(void *bytes, std::size_t count)
    {
        return count == 0
            || ::recv(library, bytes, count, MSG_WAITALL) == static_cast<ssize_t>(count);
    }
};

bool sendAnswer(const Message &answer)
{
    Socket socket;
    return sendMessage(socket, {answer.kind, {answer.fields.begin(), answer.fields.end()}});
}

std::atomic<bool> isEnding = false;

// Ends the process in the middle of a drawing for which nobody waits any more.
void watchLibrary()
{
    pollfd state = {library, POLLRDHUP, 0};
    while (::poll(&state, 1, -1) == -1 && errno == EINTR) { }
    // Between two drawings the process ends by itself.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    if (!isEnding)
        std::_Exit(EXIT_FAILURE);
}

bool isSocket()
{
    struct stat state = {};
    return ::fstat(library, &state) == 0 && S_ISSOCK(state.st_mode);
}

// The host has no child that it does not know of: this process is nobody's.
void leaveStarter()
{
    const pid_t process = ::fork();
    if (process > 0)
        std::_Exit(EXIT_SUCCESS);
    if (process == -1) {
        std::perror("fork");
        std::_Exit(EXIT_FAILURE);
    }
}

void serve()
{
    sendAnswer({ORRLAYOUT_OK, {ORR_VERSION}});
    Socket socket;
    Message request;
    while (receiveMessage(socket, &request)) {
        if (!sendAnswer(answered(request)))
            return;
        request = {};
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 1 || !isSocket()) {
        std::fputs("This program is called by liborrlayout, which draws with it.\n", stderr);
        return 2;
    }
    leaveStarter();
    prepareForSuddenEnd();
    prepareToolkit();
    startToolkit(argv[0]);
    startApplication(QStringLiteral("orrlayout"));
    if (const QString fault = fontFault(); !fault.isEmpty()) {
        std::fputs(fault.toLocal8Bit().constData(), stderr);
        return EXIT_FAILURE;
    }

    std::thread watcher(watchLibrary);
    serve();
    isEnding = true;
    watcher.join();
#ifdef __SANITIZE_ADDRESS__
    // What its fonts hold would be taken for lost.
    const HeldStandardError held;
    delete qApp;
#endif
    return EXIT_SUCCESS;
}
