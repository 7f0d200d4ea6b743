#pragma once

#include "companion/jobs/worker_pool.h"

#include <optional>

namespace ORR::Companion {

// A worker of which only the newest task matters: that takes the place of those that were given
// before. The one that is under way may still be finished if it is soon, and is told then, too.
//
// As of a `WorkerPool`, nothing here waits: see `watch` and `advance` there.
class NewestTask
{
public:
    using Clock = WorkerPool::Clock;

    explicit NewestTask(const WorkerSettings &settings);

    void give(qint64 number, WorkerTask task);
    // Ends what is under way, and forgets what was to come.
    void drop();

    // Whether anything is under way or to come.
    bool isBusy() const { return isWorking || next.has_value(); }

    void watch(std::vector<pollfd> *polled, Clock::time_point *deadline) const;
    std::vector<FinishedTask> advance();

private:
    std::vector<FinishedTask> advancePool();
    void beginNext();
    void dropWork();

    WorkerPool pool;
    bool isWorking = false;
    std::optional<std::pair<qint64, WorkerTask>> next;
    Clock::time_point outdated; // what is under way, if there is a next one
};

} // namespace ORR::Companion
