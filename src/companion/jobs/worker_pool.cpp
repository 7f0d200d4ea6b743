#include "companion/jobs/worker_pool.h"

#include <algorithm>
#include <utility>

namespace ORR::Companion {

WorkerPool::WorkerPool(int mostWorkers_, const WorkerSettings &settings_)
    : mostWorkers(mostWorkers_), settings(settings_)
{
}

void WorkerPool::add(qint64 number, WorkerTask task)
{
    queue.emplace_back(number, std::move(task));
}

bool WorkerPool::isIdle() const
{
    return queue.empty()
        && std::ranges::all_of(workers, [](const auto &worker) { return worker->isIdle(); });
}

void WorkerPool::watch(std::vector<pollfd> *polled, Clock::time_point *deadline) const
{
    for (const auto &worker : workers)
        worker->watch(polled, deadline);
}

std::vector<FinishedTask> WorkerPool::advance()
{
    std::vector<FinishedTask> finished;
    for (const auto &worker : workers)
        worker->advance(&finished);
    replaceGone(&finished);
    handOut();
    return finished;
}

// All are asked before any is waited for.
void WorkerPool::endAll()
{
    queue.clear();
    for (const auto &worker : workers)
        worker->end();
    workers.clear();
}

void WorkerPool::handOut()
{
    while (!queue.empty()) {
        WorkerProcess *const worker = freeWorker();
        if (!worker)
            return;
        worker->give(queue.front().first, queue.front().second);
        queue.pop_front();
    }
}

// One with nothing to do, else a new one, else one that has no task ahead.
WorkerProcess *WorkerPool::freeWorker()
{
    const auto idle = std::ranges::find_if(
        workers, [](const auto &worker) { return worker->isIdle() && worker->wantsTask(); });
    if (idle != workers.end())
        return idle->get();
    if (int(workers.size()) < mostWorkers) {
        workers.push_back(std::make_unique<WorkerProcess>(settings));
        return workers.back()->wantsTask() ? workers.back().get() : nullptr;
    }
    const auto busy =
        std::ranges::find_if(workers, [](const auto &worker) { return worker->wantsTask(); });
    return busy == workers.end() ? nullptr : busy->get();
}

// What a worker had ahead comes first again. Where one can't start, the others do without it; if
// there are none, another would not do better.
void WorkerPool::replaceGone(std::vector<FinishedTask> *finished)
{
    QByteArray fault;
    for (const auto &worker : workers) {
        if (!worker->isGone())
            continue;
        std::vector<std::pair<qint64, WorkerTask>> tasks = worker->takeTasks();
        for (auto task = tasks.rbegin(); task != tasks.rend(); ++task)
            queue.push_front(std::move(*task));
        if (!worker->fault().isEmpty())
            fault = worker->fault();
    }
    std::erase_if(workers, [](const auto &worker) { return worker->isGone(); });
    if (fault.isEmpty())
        return;
    if (workers.empty())
        failAll(fault, finished);
    else
        mostWorkers = int(workers.size());
}

void WorkerPool::failAll(const QByteArray &message, std::vector<FinishedTask> *finished)
{
    for (const auto &[number, task] : queue)
        finished->push_back({number, {.message = message}});
    queue.clear();
}

} // namespace ORR::Companion
