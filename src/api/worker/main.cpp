// The program that draws for the library, see worker_process.h.
#include "api/worker/answer.h"

#include "api/protocol.h"
#include "device/text_widths.h"
#include "drawing/environment.h"
#include "drawing/held_standard_error.h"
#include "drawing/sudden_end.h"
#include "drawing/toolkit.h"
#include "workers/requests.h"

#include <QCoreApplication>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <thread>

#include <poll.h>
#include <unistd.h>

using namespace ORR::Api;
using namespace ORR::Drawing;
using namespace ORR::Workers;

namespace {

std::atomic<bool> isEnding = false;

// Ends the process in the middle of a drawing for which nobody waits any more.
void watchLibrary(int library)
{
    pollfd state = {library, POLLRDHUP, 0};
    while (::poll(&state, 1, -1) == -1 && errno == EINTR) { }
    // Between two drawings the process ends by itself.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    if (!isEnding)
        std::_Exit(EXIT_FAILURE);
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

void serve(Requests *requests)
{
    if (!requests->answer({ORRLAYOUT_OK, {ORR_VERSION}}))
        return;
    const ORR::Graph::KeptTextWidths keptWidths;
    while (const std::optional<Message> request = requests->next()) {
        const Message answer = answered(*request);
        if (!requests->answer({answer.kind, {answer.fields.begin(), answer.fields.end()}}))
            return;
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 1 || !Requests::areThere()) {
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

    Requests requests;
    std::thread watcher(watchLibrary, requests.descriptor());
    serve(&requests);
    isEnding = true;
    watcher.join();
#ifdef __SANITIZE_ADDRESS__
    // What its fonts hold would be taken for lost.
    const HeldStandardError held;
    delete qApp;
#endif
    return EXIT_SUCCESS;
}
