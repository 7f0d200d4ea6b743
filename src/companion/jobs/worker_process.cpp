#include "companion/jobs/worker_process.h"

#include "companion/jobs/abandoned_files.h"
#include "companion/jobs/value_bytes.h"
#include "companion/jobs/worker.h"
#include "workers/worker_start.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <string>

#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ORR::Companion {

namespace {

// The task that it is at, and one for it to go on with while the answer is on its way.
constexpr size_t mostTasks = 2;

// What a process may take to end that was asked to: to remove its files takes a hundredth of it.
// One that does not end holds up whoever interrupts the program.
constexpr std::chrono::milliseconds patience{300};

// The same program, under the name that it was called by: that is where it looks for the
// installation. It is found by what runs, so that a new one in its place changes nothing meanwhile.
Workers::WorkerCall callOf(const WorkerSettings &settings)
{
    return {"/proc/self/exe",
            {program_invocation_name, "draw", workerArgument, std::to_string(settings.memoryLimit),
             settings.measuresMemory ? "1" : "0"}};
}

QByteArray seconds(std::chrono::milliseconds time)
{
    return QByteArray::number(double(time.count()) / 1000) + " s";
}

} // namespace

WorkerProcess::Outgoing::Outgoing(const WorkerTask &task)
    : bytes(bytesOfTask(task)),
      message({std::uint32_t(task.index()), {{bytes.constData(), size_t(bytes.size())}}})
{
}

WorkerProcess::WorkerProcess(const WorkerSettings &settings_) : settings(settings_)
{
    Workers::WorkerDescriptors descriptors;
    const int error = Workers::startWorker(callOf(settings), &descriptors, &pid);
    if (error != 0) {
        pid = 0;
        startFault = "a worker can't be started: " + QByteArray(std::strerror(error));
        gone = true;
        return;
    }
    socket = Graph::Descriptor(descriptors.socket);
    words = Graph::Descriptor(descriptors.lastWords);
}

WorkerProcess::~WorkerProcess()
{
    if (gone)
        return;
    end();
    socket.close();
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

void WorkerProcess::give(qint64 number, const WorkerTask &task)
{
    tasks.push_back({number, task});
    if (tasks.size() == 1)
        startNext();
    unsent.emplace_back(task);
    sendMore();
}

void WorkerProcess::watch(std::vector<pollfd> *polled, Clock::time_point *deadline) const
{
    if (gone) {
        *deadline = Clock::now();
        return;
    }
    const auto events = static_cast<short>(unsent.empty() ? POLLIN : POLLIN | POLLOUT);
    polled->push_back({socket.number(), events, 0});
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

std::vector<std::pair<qint64, WorkerTask>> WorkerProcess::takeTasks()
{
    std::vector<std::pair<qint64, WorkerTask>> left;
    for (Task &task : tasks)
        left.emplace_back(task.number, std::move(task.task));
    tasks.clear();
    return left;
}

void WorkerProcess::end()
{
    if (gone)
        return;
    if (isReady && tasks.empty())
        socket.close();
    else
        ::kill(pid, SIGTERM);
}

// A socket that nobody reads from any more is that of a process whose end is seen elsewhere.
void WorkerProcess::sendMore()
{
    while (!unsent.empty()) {
        const auto state = unsent.front().message.send(socket.number(), MSG_DONTWAIT);
        if (state == Workers::OutgoingMessage::Waiting)
            return;
        if (state == Workers::OutgoingMessage::Failed)
            unsent.clear();
        else
            unsent.pop_front();
    }
}

void WorkerProcess::receive(std::vector<FinishedTask> *finished)
{
    auto state = Workers::MessageReader::More;
    while (state == Workers::MessageReader::More) {
        state = reader.receive(socket.number(), MSG_DONTWAIT);
        while (const std::optional<Workers::Message> message = reader.next()) {
            if (message->fields.size() == 1)
                take(QByteArray::fromStdString(message->fields.front()), finished);
        }
    }
    if (state == Workers::MessageReader::Ended)
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
    const auto *const drawing = std::get_if<DrawingTask>(&tasks.front().task);
    if (drawing && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
        removeAbandonedFiles(drawing->output);
    finished->push_back(std::move(lost));
    tasks.pop_front();
}

QByteArray WorkerProcess::causeOfDeath(int status) const
{
    if (WIFSIGNALED(status))
        return "the worker was ended by signal " + QByteArray::number(WTERMSIG(status)) + " ("
            + ::strsignal(WTERMSIG(status)) + ')';
    const QByteArray said = QByteArray::fromStdString(Workers::lastWords(words.number()));
    if (!said.isEmpty())
        return said;
    return "the worker ended with status " + QByteArray::number(WEXITSTATUS(status));
}

} // namespace ORR::Companion
