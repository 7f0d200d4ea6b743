#pragma once

#include "workers/message.h"
#include "workers/worker_start.h"

#include <chrono>
#include <optional>
#include <string>

#include <sys/types.h>

namespace ORR::Api {

using Workers::WorkerDescriptors;

using Clock = std::chrono::steady_clock;
using Deadline = std::optional<Clock::time_point>; // nothing is any time

// The process from which a worker is forked. It ends at once, and is waited for at the end of its
// object.
class Starter
{
public:
    Starter() = default;
    ~Starter();
    Starter(const Starter &) = delete;
    Starter &operator=(const Starter &) = delete;

    pid_t process = -1;
};

// Starts a program as a worker. It is a child of nobody, so that no `wait` of the host meets it,
// and ends when the socket is closed. Nothing but its streams is open in it. False, and why, if it
// can't be started.
bool startWorker(const std::string &program, WorkerDescriptors *descriptors, Starter *starter,
                 std::string *fault);

// What is said to one worker and heard from it, up to a time. Its socket is not owned: the pool
// closes it.
class Conversation
{
public:
    Conversation(const WorkerDescriptors &descriptors, const Deadline &latest)
        : worker(descriptors), deadline(latest)
    {
    }

    // True if the whole message passed before the deadline.
    bool send(const Workers::MessageView &message);
    bool receive(Workers::Message *message);

    // Whether it was the deadline that ended a `send` or a `receive`.
    bool isLate() const { return late; }

private:
    bool waitFor(short event);

    WorkerDescriptors worker;
    Deadline deadline;
    bool late = false;
};

// False if the worker has ended or says something unasked.
bool isWaiting(const WorkerDescriptors &worker);

} // namespace ORR::Api
