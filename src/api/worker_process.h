#pragma once

#include "api/protocol.h"

#include <chrono>
#include <optional>
#include <string>

#include <sys/types.h>

namespace ORR::Api {

using Clock = std::chrono::steady_clock;
using Deadline = std::optional<Clock::time_point>; // nothing is any time

// The two descriptors of a worker: what is said, and its standard error, a file in memory that
// keeps its last words. Both lie behind the standard streams and are closed when a program is
// called.
struct WorkerDescriptors
{
    int socket = -1;
    int lastWords = -1;
};

void closeDescriptors(WorkerDescriptors *descriptors);

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
// and ends when the socket is closed. Nothing but the two descriptors and the standard streams is
// open in it. False, and why, if it can't be started.
bool startWorker(const std::string &program, WorkerDescriptors *descriptors, Starter *starter,
                 std::string *fault);

// One worker as long as its socket is open. Not owned: the pool closes it.
class WorkerStream
{
public:
    WorkerStream(const WorkerDescriptors &descriptors, const Deadline &latest)
        : worker(descriptors), deadline(latest)
    {
    }

    // True if all bytes passed before the deadline.
    bool write(const void *bytes, std::size_t count);
    bool read(void *bytes, std::size_t count);

    // Whether it was the deadline that ended a `write` or a `read`.
    bool isLate() const { return late; }

private:
    bool waitFor(short event);

    WorkerDescriptors worker;
    Deadline deadline;
    bool late = false;
};

// False if the worker has ended or says something unasked.
bool isWaiting(const WorkerDescriptors &worker);

// What a worker that has ended wrote to its standard error, in one line.
std::string lastWords(const WorkerDescriptors &worker);

} // namespace ORR::Api
