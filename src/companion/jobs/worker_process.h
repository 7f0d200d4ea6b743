#pragma once

#include "companion/jobs/worker_task.h"
#include "output/files/descriptor.h"
#include "workers/message.h"

#include <QByteArray>

#include <chrono>
#include <deque>
#include <optional>
#include <vector>

#include <poll.h>
#include <sys/types.h>

namespace ORR::Companion {

// What every worker is started with, and held to.
struct WorkerSettings
{
    std::chrono::milliseconds timeLimit{0}; // for one task; 0 for none
    qint64 memoryLimit = 0; // megabytes for one task, see `runWorker`; 0 for none
    bool measuresMemory = false;
};

// A task that came to its end, by the number that it was given.
struct FinishedTask
{
    qint64 number = 0;
    DrawingAnswer answer;
};

// A process of this program that draws, as its parent sees it. It is given its tasks a little
// ahead, so that it never waits for one.
class WorkerProcess
{
public:
    using Clock = std::chrono::steady_clock;

    // Starts the process. `isStarted` is false, and `fault` says why, if that failed.
    explicit WorkerProcess(const WorkerSettings &settings);
    // Ends it, if it is still there, and waits for that.
    ~WorkerProcess();
    WorkerProcess(const WorkerProcess &) = delete;
    WorkerProcess &operator=(const WorkerProcess &) = delete;

    bool isStarted() const { return pid > 0; }
    const QByteArray &fault() const { return startFault; }

    bool isIdle() const { return tasks.empty(); }
    // Whether it can be given one more task: it has none ahead.
    bool wantsTask() const;
    void give(qint64 number, const WorkerTask &task);

    // Adds what is to be waited for, and until when at most.
    void watch(std::vector<pollfd> *polled, Clock::time_point *deadline) const;
    // Sends and receives what can be without waiting, and ends a process that takes too long. Adds
    // what is finished.
    void advance(std::vector<FinishedTask> *finished);

    // Once it is gone: the task that it was at fails, unless it could not even start, which `fault`
    // tells then, and those ahead are still to be done.
    bool isGone() const { return gone; }
    std::vector<std::pair<qint64, WorkerTask>> takeTasks();

    // Asks it to end, whatever it is at. Its unfinished file goes with it. One that is at nothing
    // ends as it likes to, since there is nothing more for it to read.
    void end();

private:
    struct Task
    {
        qint64 number;
        WorkerTask task;
    };

    // A message, and the bytes that it sends.
    struct Outgoing
    {
        explicit Outgoing(const WorkerTask &task);

        QByteArray bytes;
        Workers::OutgoingMessage message;
    };

    void sendMore();
    void receive(std::vector<FinishedTask> *finished);
    void take(const QByteArray &message, std::vector<FinishedTask> *finished);
    void keepTime();
    void bury(std::vector<FinishedTask> *finished);
    QByteArray causeOfDeath(int status) const;
    void startNext();

    WorkerSettings settings;
    pid_t pid = 0;
    QByteArray startFault;
    Graph::Descriptor socket;
    Graph::Descriptor words; // its standard error
    std::deque<Outgoing> unsent;
    Workers::MessageReader reader;
    bool isReady = false; // its start is over
    bool gone = false;
    std::deque<Task> tasks; // the first is the one that it is at
    Clock::time_point started; // the first task
    std::optional<Clock::time_point> condemned; // asked to end since, for taking too long
    qint64 late = 0; // the task that took it
};

} // namespace ORR::Companion
