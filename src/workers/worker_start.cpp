#include "workers/worker_start.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

namespace ORR::Workers {

namespace {

constexpr int firstFree = STDERR_FILENO + 1;

// A process may have closed its standard streams; no descriptor of ours takes their place.
int behindStandardStreams(int descriptor)
{
    if (descriptor < 0 || descriptor >= firstFree)
        return descriptor;
    const int moved = ::fcntl(descriptor, F_DUPFD_CLOEXEC, firstFree);
    ::close(descriptor);
    return moved;
}

// How the worker comes to its streams and signals.
class SpawnPlan
{
public:
    SpawnPlan(int socket, int lastWords, bool isApart)
    {
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, socket, STDIN_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, lastWords, STDERR_FILENO);
        ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);

        sigset_t signals;
        ::posix_spawnattr_init(&attributes);
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes, &signals);
        ::sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&attributes, &signals);
        short flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
        if (isApart) {
            ::posix_spawn_file_actions_addclosefrom_np(&actions, firstFree);
            flags |= POSIX_SPAWN_SETSID;
        }
        ::posix_spawnattr_setflags(&attributes, flags);
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
int spawn(const WorkerCall &call, int socket, int lastWords, pid_t *process)
{
    const SpawnPlan plan(socket, lastWords, call.isApart);
    std::vector<char *> arguments;
    for (const std::string &argument : call.arguments)
        arguments.push_back(const_cast<char *>(argument.c_str())); // no program writes there yet
    arguments.push_back(nullptr);
    return ::posix_spawn(process, call.program.c_str(), &plan.actions, &plan.attributes,
                         arguments.data(), environ);
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

int startWorker(const WorkerCall &call, WorkerDescriptors *descriptors, pid_t *process)
{
    int sockets[2] = {-1, -1};
    const bool areConnected = ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) == 0;
    descriptors->socket = behindStandardStreams(sockets[0]);
    const int workerSocket = behindStandardStreams(sockets[1]);
    descriptors->lastWords = behindStandardStreams(::memfd_create("last words", MFD_CLOEXEC));

    int error = errno;
    // Appended is also behind a beginning that was cut off.
    if (areConnected && descriptors->socket != -1 && workerSocket != -1
        && descriptors->lastWords != -1 && ::fcntl(descriptors->lastWords, F_SETFL, O_APPEND) == 0)
        error = spawn(call, workerSocket, descriptors->lastWords, process);
    if (workerSocket != -1)
        ::close(workerSocket);
    if (error != 0)
        closeDescriptors(descriptors);
    return error;
}

std::string lastWords(int descriptor)
{
    std::array<char, 4096> end{};
    const off_t size = ::lseek(descriptor, 0, SEEK_END);
    const off_t from = std::max<off_t>(0, size - static_cast<off_t>(end.size()));
    const ssize_t count = ::pread(descriptor, end.data(), end.size(), from);
    std::string words(end.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    words.erase(
        std::find_if(words.rbegin(), words.rend(), [](unsigned char c) { return c > ' '; }).base(),
        words.end());
    words.erase(0, words.rfind('\n') + 1);
    // What a worker writes is printable, but for what a library may say on its way down.
    std::replace_if(
        words.begin(), words.end(), [](unsigned char c) { return c < ' ' || c == 0x7f; }, ' ');
    return words;
}

} // namespace ORR::Workers
