#include "companion/jobs/worker_process.h"

#include "companion/jobs/abandoned_files.h"
#include "companion/jobs/worker.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <string>

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ORR::Companion {

namespace {

// The task that it is at, and one for it to go on with while the answer is on its way.
constexpr size_t mostTasks = 2;

// What a process may take to end that was asked to.
constexpr std::chrono::milliseconds patience{1000};

struct Pipe
{
    Graph::Descriptor readEnd;
    Graph::Descriptor writeEnd;
};

Pipe makePipe()
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return {};
    return {Graph::Descriptor(ends[0]), Graph::Descriptor(ends[1])};
}

// As a terminal has them, whatever this process does with them.
void settleSignals(posix_spawnattr_t *attributes)
{
    sigset_t none;
    ::sigemptyset(&none);
    ::posix_spawnattr_setsigmask(attributes, &none);
    sigset_t usual;
    ::sigemptyset(&usual);
    ::sigaddset(&usual, SIGTERM);
    ::sigaddset(&usual, SIGXCPU);
    ::posix_spawnattr_setsigdefault(attributes, &usual);
    ::posix_spawnattr_setflags(attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
}

// The same program, under the name that it was called by: that is where it looks for the
// installation. It is found by what runs, so that a new one in its place changes nothing meanwhile.
pid_t spawn(const WorkerSettings &settings, int input, int output, int error)
{
    std::string memory = std::to_string(settings.memoryLimit);
    std::string worker = workerArgument;
    std::string draw = "draw";
    std::string measures = settings.measuresMemory ? "1" : "0";
    char *arguments[] = {program_invocation_name, draw.data(),     worker.data(),
                         memory.data(),           measures.data(), nullptr};
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    ::posix_spawn_file_actions_init(&files);
    ::posix_spawnattr_init(&attributes);
    ::posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&files, error, STDERR_FILENO);
    settleSignals(&attributes);
    pid_t pid = 0;
    const int fault =
        ::posix_spawn(&pid, "/proc/self/exe", &files, &attributes, arguments, environ);
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&files);
    errno = fault;
    return fault == 0 ? pid : -1;
}

QByteArray seconds(std::chrono::milliseconds time)
{
    return QByteArray::number(double(time.count()) / 1000) + " s";
}

} // namespace

WorkerProcess::WorkerProcess(const WorkerSettings &settings_) : settings(settings_)
{
    Pipe tasksPipe = makePipe();
    Pipe answers = makePipe();
    words = Graph::Descriptor(::memfd_create("words", MFD_CLOEXEC));
    const bool isOpen = tasksPipe.readEnd && answers.readEnd && words
        && ::fcntl(words.number(), F_SETFL, O_APPEND) == 0
        && ::fcntl(tasksPipe.writeEnd.number(), F_SETFL, O_NONBLOCK) == 0
        && ::fcntl(answers.readEnd.number(), F_SETFL, O_NONBLOCK) == 0;
    if (isOpen)
        pid =
            spawn(settings, tasksPipe.readEnd.number(), answers.writeEnd.number(), words.number());
    if (!isStarted()) {
        startFault = "a worker can't be started: " + QByteArray(std::strerror(errno));
        gone = true;
        return;
    }
    toWorker = std::move(tasksPipe.writeEnd);
    fromWorker = std::move(answers.readEnd);
}

WorkerProcess::~WorkerProcess()
{
    if (gone)
        return;
    end();
    toWorker.close();
    const auto patient = Clock::now() + patience;
    while (::waitpid(pid, nullptr, WNOHANG) == 0) {
        if (Clock::now() > patient) {
            ::kill(pid, SIGKILL);
            ::waitpid(pid, nullptr, 0);
            return;
        }
        ::usleep(500);
    }
}

bool WorkerProcess::wantsTask() const
{
    return !gone && !condemned && tasks.size() < mostTasks;
}

void WorkerProcess::give(qint64 number, const DrawingTask &task)
{
    tasks.push_back({number, task});
    if (tasks.size() == 1)
        startNext();
    unsent += frameOfValue(task);
    sendMore();
}

void WorkerProcess::watch(std::vector<pollfd> *polled, Clock::time_point *deadline) const
{
    if (gone) {
        *deadline = Clock::now();
        return;
    }
    polled->push_back({fromWorker.number(), POLLIN, 0});
    if (!unsent.isEmpty())
        polled->push_back({toWorker.number(), POLLOUT, 0});
    if (condemned)
        *deadline = std::min(*deadline, *condemned + patience);
    else if (settings.timeLimit.count() > 0 && isReady && !tasks.empty())
        *deadline = std::min(*deadline, started + settings.timeLimit);
}

void WorkerProcess::advance(std::vector<FinishedTask> *finished)
{
    if (gone)
        return;
    sendMore();
    receive(finished);
    if (!gone)
        keepTime();
}

std::vector<std::pair<qint64, DrawingTask>> WorkerProcess::takeTasks()
{
    std::vector<std::pair<qint64, DrawingTask>> left;
    for (Task &task : tasks)
        left.emplace_back(task.number, std::move(task.task));
    tasks.clear();
    return left;
}

void WorkerProcess::end()
{
    if (!gone)
        ::kill(pid, SIGTERM);
}

// A pipe that nobody reads any more is that of a process whose end is seen elsewhere.
void WorkerProcess::sendMore()
{
    while (!unsent.isEmpty()) {
        const ssize_t count =
            ::write(toWorker.number(), unsent.constData(), static_cast<size_t>(unsent.size()));
        if (count == -1 && errno == EINTR)
            continue;
        if (count == -1 && errno != EAGAIN && errno != EWOULDBLOCK)
            unsent.clear();
        if (count <= 0)
            return;
        unsent.remove(0, count);
    }
}

void WorkerProcess::receive(std::vector<FinishedTask> *finished)
{
    FrameReader::State state = FrameReader::More;
    while (state == FrameReader::More) {
        state = reader.readFrom(fromWorker.number());
        while (const std::optional<QByteArray> message = reader.next())
            take(*message, finished);
    }
    if (state == FrameReader::Ended)
        bury(finished);
}

void WorkerProcess::take(const QByteArray &message, std::vector<FinishedTask> *finished)
{
    if (!isReady) {
        startFault = message;
        isReady = startFault.isEmpty();
        startNext();
        return;
    }
    std::optional<DrawingAnswer> answer = valueOf<DrawingAnswer>(message);
    if (!answer || tasks.empty())
        return;
    finished->push_back({tasks.front().number, std::move(*answer)});
    tasks.pop_front();
    startNext();
}

void WorkerProcess::startNext()
{
    started = Clock::now();
}

void WorkerProcess::keepTime()
{
    const auto now = Clock::now();
    if (condemned && now >= *condemned + patience) {
        ::kill(pid, SIGKILL);
        condemned = now;
    }
    const bool isLate = settings.timeLimit.count() > 0 && isReady && !tasks.empty()
        && now >= started + settings.timeLimit;
    if (isLate && !condemned) {
        end();
        condemned = now;
        late = tasks.front().number;
    }
}

// Whatever it said before it ended has been taken.
void WorkerProcess::bury(std::vector<FinishedTask> *finished)
{
    int status = 0;
    rusage usage = {};
    while (::wait4(pid, &status, 0, &usage) == -1 && errno == EINTR) { }
    gone = true;
    if (!isReady) {
        if (startFault.isEmpty())
            startFault = "a worker can't be started: " + causeOfDeath(status);
        return;
    }
    // It may have done what it took too long for just before it ended.
    if (tasks.empty() || (condemned && tasks.front().number != late))
        return;
    FinishedTask lost{tasks.front().number, {}};
    lost.answer.message =
        condemned ? "took longer than " + seconds(settings.timeLimit) : causeOfDeath(status);
    const auto time = Clock::now() - started;
    lost.answer.microseconds = std::chrono::duration_cast<std::chrono::microseconds>(time).count();
    lost.answer.peakMemory = settings.measuresMemory ? usage.ru_maxrss : 0;
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
        removeAbandonedFiles(tasks.front().task.output);
    finished->push_back(std::move(lost));
    tasks.pop_front();
}

QByteArray WorkerProcess::causeOfDeath(int status) const
{
    if (WIFSIGNALED(status))
        return "the worker was ended by signal " + QByteArray::number(WTERMSIG(status)) + " ("
            + ::strsignal(WTERMSIG(status)) + ')';
    const QByteArray said = lastWords();
    if (!said.isEmpty())
        return said;
    return "the worker ended with status " + QByteArray::number(WEXITSTATUS(status));
}

// The last line on its standard error.
QByteArray WorkerProcess::lastWords() const
{
    std::array<char, 4096> end;
    const off_t size = ::lseek(words.number(), 0, SEEK_END);
    const off_t from = std::max<off_t>(0, size - off_t(end.size()));
    const ssize_t count = ::pread(words.number(), end.data(), end.size(), from);
    const QByteArray text = QByteArray(end.data(), std::max<ssize_t>(count, 0)).trimmed();
    return text.sliced(text.lastIndexOf('\n') + 1);
}

} // namespace ORR::Companion
