#pragma once

#include "companion/jobs/worker_process.h"

#include <deque>
#include <memory>
#include <vector>

namespace ORR::Companion {

// Worker processes and the tasks that wait for one. A task that its worker does not survive fails
// alone, and the worker is replaced. The pool never waits by itself: whoever keeps it waits for
// what `watch` names, beside whatever else there is, and then calls `advance`.
class WorkerPool
{
public:
    using Clock = WorkerProcess::Clock;

    // At most so many workers; each is started when there is a task for it.
    WorkerPool(int mostWorkers, const WorkerSettings &settings);

    // Takes a task. The number is what its end is told by.
    void add(qint64 number, WorkerTask task);

    // Tasks that no worker has been given yet.
    qsizetype waiting() const { return qsizetype(queue.size()); }
    bool isIdle() const;

    // Adds what is to be waited for, and sets until when at most.
    void watch(std::vector<pollfd> *polled, Clock::time_point *deadline) const;
    // Goes on with what can be gone on with, and gives what has come to its end, in that order.
    std::vector<FinishedTask> advance();

    // Ends all workers, whatever they are at, and forgets what waits for one.
    void endAll();

private:
    void handOut();
    WorkerProcess *freeWorker();
    void replaceGone(std::vector<FinishedTask> *finished);
    void failAll(const QByteArray &message, std::vector<FinishedTask> *finished);

    int mostWorkers;
    WorkerSettings settings;
    std::vector<std::unique_ptr<WorkerProcess>> workers;
    std::deque<std::pair<qint64, WorkerTask>> queue;
};

} // namespace ORR::Companion
