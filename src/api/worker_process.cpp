#include "api/worker_process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ORR::Api {

namespace {

constexpr int firstFree = STDERR_FILENO + 1;

// The host may have closed its standard streams; no descriptor of ours takes their place.
int behindStandardStreams(int descriptor)
{
    if (descriptor < 0 || descriptor >= firstFree)
        return descriptor;
    const int moved = ::fcntl(descriptor, F_DUPFD_CLOEXEC, firstFree);
    ::close(descriptor);
    return moved;
}

std::string faultOf(const char *what, int error)
{
    std::array<char, 256> buffer{};
    return std::string(what) + ": " + ::strerror_r(error, buffer.data(), buffer.size());
}

// How the worker comes to its streams and to signals as a program has them at its start, whatever
// the host does with its own.
class SpawnPlan
{
public:
    SpawnPlan(int socket, int lastWords)
    {
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, socket, STDIN_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, lastWords, STDERR_FILENO);
        ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        ::posix_spawn_file_actions_addclosefrom_np(&actions, firstFree);

        sigset_t signals;
        ::posix_spawnattr_init(&attributes);
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes, &signals);
        ::sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&attributes, &signals);
        // A session of its own: what is typed at the host's terminal is not for the worker.
        ::posix_spawnattr_setflags(
            &attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
    }
    ~SpawnPlan()
    {
        ::posix_spawnattr_destroy(&attributes);
        ::posix_spawn_file_actions_destroy(&actions);
    }
    SpawnPlan(const SpawnPlan &) = delete;
    SpawnPlan &operator=(const SpawnPlan &) = delete;

    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
};

// Gives the number of the error.
int spawn(std::string program, int socket, int lastWords, Starter *starter)
{
    const SpawnPlan plan(socket, lastWords);
    char *arguments[] = {program.data(), nullptr};
    return ::posix_spawn(&starter->process, program.c_str(), &plan.actions, &plan.attributes,
                         arguments, environ);
}

} // namespace

void closeDescriptors(WorkerDescriptors *descriptors)
{
    for (int *const descriptor : {&descriptors->socket, &descriptors->lastWords}) {
        if (*descriptor != -1)
            ::close(*descriptor);
        *descriptor = -1;
    }
}

// A host that waits for all its children may be there first.
Starter::~Starter()
{
    while (process != -1 && ::waitpid(process, nullptr, 0) == -1 && errno == EINTR) { }
}

bool startWorker(const std::string &program, WorkerDescriptors *descriptors, Starter *starter,
                 std::string *fault)
{
    int sockets[2] = {-1, -1};
    const bool areConnected = ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) == 0;
    descriptors->socket = behindStandardStreams(sockets[0]);
    const int workerSocket = behindStandardStreams(sockets[1]);
    descriptors->lastWords = behindStandardStreams(::memfd_create("last words", MFD_CLOEXEC));

    int error = errno;
    if (areConnected && descriptors->socket != -1 && workerSocket != -1
        && descriptors->lastWords != -1)
        error = spawn(program, workerSocket, descriptors->lastWords, starter);
    if (workerSocket != -1)
        ::close(workerSocket);
    if (error == 0)
        return true;
    *fault = faultOf(program.c_str(), error);
    closeDescriptors(descriptors);
    return false;
}

bool WorkerStream::write(const void *bytes, std::size_t count)
{
    const char *next = static_cast<const char *>(bytes);
    while (count > 0) {
        const ssize_t sent = ::send(worker.socket, next, count, MSG_DONTWAIT | MSG_NOSIGNAL);
        if (sent == -1 && !waitFor(POLLOUT))
            return false;
        if (sent > 0) {
            next += sent;
            count -= static_cast<std::size_t>(sent);
        }
    }
    return true;
}

bool WorkerStream::read(void *bytes, std::size_t count)
{
    char *next = static_cast<char *>(bytes);
    while (count > 0) {
        const ssize_t received = ::recv(worker.socket, next, count, MSG_DONTWAIT);
        if (received == 0 || (received == -1 && !waitFor(POLLIN)))
            return false;
        if (received > 0) {
            next += received;
            count -= static_cast<std::size_t>(received);
        }
    }
    return true;
}

// To be asked after a call that failed: whether it is to be made again. Waits for the event.
bool WorkerStream::waitFor(short event)
{
    if (errno == EINTR)
        return true;
    if (errno != EAGAIN && errno != EWOULDBLOCK)
        return false;
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

std::string lastWords(const WorkerDescriptors &worker)
{
    std::array<char, 1000> buffer{};
    const ssize_t count = ::pread(worker.lastWords, buffer.data(), buffer.size(), 0);
    std::string words(buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    words.erase(std::find_if(words.rbegin(), words.rend(), [](char c) { return c != '\n'; }).base(),
                words.end());
    // What the worker writes is printable, but for what a library may say on its way down.
    std::replace_if(
        words.begin(), words.end(), [](unsigned char c) { return c < ' ' || c == 0x7f; }, ' ');
    return words;
}

} // namespace ORR::Api
