#include "api/worker_process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>

namespace ORR::Api {

using namespace Workers;

// A host that waits for all its children may be there first.
Starter::~Starter()
{
    while (process != -1 && ::waitpid(process, nullptr, 0) == -1 && errno == EINTR) { }
}

bool startWorker(const std::string &program, WorkerDescriptors *descriptors, Starter *starter,
                 std::string *fault)
{
    const int error =
        Workers::startWorker({program, {program}, true}, descriptors, &starter->process);
    if (error == 0)
        return true;
    std::array<char, 256> buffer{};
    *fault = program + ": " + ::strerror_r(error, buffer.data(), buffer.size());
    return false;
}

bool Conversation::send(const MessageView &message)
{
    OutgoingMessage outgoing(message);
    auto state = outgoing.send(worker.socket, MSG_DONTWAIT);
    while (state == OutgoingMessage::Waiting && waitFor(POLLOUT))
        state = outgoing.send(worker.socket, MSG_DONTWAIT);
    return state == OutgoingMessage::Sent;
}

bool Conversation::receive(Message *message)
{
    MessageReader reader;
    for (;;) {
        if (std::optional<Message> whole = reader.next()) {
            *message = std::move(*whole);
            return true;
        }
        const auto state = reader.receive(worker.socket, MSG_DONTWAIT);
        const bool goesOn =
            state == MessageReader::More || (state == MessageReader::Waiting && waitFor(POLLIN));
        if (!goesOn)
            return false;
    }
}

// False if it did not come in time.
bool Conversation::waitFor(short event)
{
    for (;;) {
        int left = -1;
        if (deadline) {
            const auto time =
                std::chrono::ceil<std::chrono::milliseconds>(*deadline - Clock::now()).count();
            if (time <= 0) {
                late = true;
                return false;
            }
            left = static_cast<int>(std::min<std::int64_t>(time, INT_MAX));
        }
        pollfd wanted = {worker.socket, event, 0};
        const int ready = ::poll(&wanted, 1, left);
        if (ready > 0)
            return true;
        if (ready == -1 && errno != EINTR)
            return false;
    }
}

bool isWaiting(const WorkerDescriptors &worker)
{
    pollfd state = {worker.socket, POLLIN | POLLRDHUP, 0};
    return ::poll(&state, 1, 0) == 0;
}

} // namespace ORR::Api
