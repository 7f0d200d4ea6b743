#include "companion/serve/newest_task.h"

#include "companion/serve/serve_limits.h"

#include <algorithm>

namespace ORR::Companion {

NewestTask::NewestTask(const WorkerSettings &settings) : pool(1, settings) { }

void NewestTask::give(qint64 number, WorkerTask task)
{
    if (isWorking && !next)
        outdated = Clock::now() + ServeLimits::graceTime;
    next.emplace(number, std::move(task));
}

void NewestTask::drop()
{
    next.reset();
    dropWork();
}

void NewestTask::watch(std::vector<pollfd> *polled, Clock::time_point *deadline) const
{
    pool.watch(polled, deadline);
    if (next)
        *deadline = std::min(*deadline, isWorking ? outdated : Clock::now());
}

std::vector<FinishedTask> NewestTask::advance()
{
    std::vector<FinishedTask> finished = advancePool();
    if (isWorking && next && Clock::now() >= outdated)
        dropWork();
    if (!isWorking && next) {
        beginNext();
        // Now it is handed out; it may fail at once.
        const std::vector<FinishedTask> further = advancePool();
        finished.insert(finished.end(), further.begin(), further.end());
    }
    return finished;
}

std::vector<FinishedTask> NewestTask::advancePool()
{
    std::vector<FinishedTask> finished = pool.advance();
    if (!finished.empty())
        isWorking = false;
    return finished;
}

void NewestTask::beginNext()
{
    pool.add(next->first, std::move(next->second));
    next.reset();
    isWorking = true;
}

void NewestTask::dropWork()
{
    if (isWorking)
        pool.endAll();
    isWorking = false;
}

} // namespace ORR::Companion
