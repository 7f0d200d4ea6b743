#include "api/worker_pool.h"

#include "api/installation.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <new>
#include <thread>
#include <vector>

#include <pthread.h>

namespace ORR::Api {

using namespace Workers;

namespace {

constexpr std::uint32_t mostWorkers = 64;

// One place for a worker. Descriptors are written under the pool's mutex, for the sake of a fork.
struct Place
{
    WorkerDescriptors worker;
    bool isBusy = false;
};

// All workers of this process. It is never destroyed: threads may be in a call when the process
// ends.
struct Pool
{
    std::mutex mutex;
    std::condition_variable placeIsFree;
    Place places[mostWorkers];
    std::uint32_t placeCount =
        std::clamp<std::uint32_t>(std::thread::hardware_concurrency(), 1, mostWorkers);
};

void beforeFork();
void afterForkInParent();
void afterForkInChild();

Pool *startPool()
{
    alignas(Pool) static char memory[sizeof(Pool)];
    ::pthread_atfork(beforeFork, afterForkInParent, afterForkInChild);
    return new (memory) Pool;
}

Pool &pool = *startPool();

void beforeFork()
{
    pool.mutex.lock();
}

void afterForkInParent()
{
    pool.mutex.unlock();
}

// The workers stay the parent's, and would not end before the child does if it held their sockets.
// The threads that used some, or wait for one, are not in the child.
void afterForkInChild()
{
    for (Place &place : pool.places) {
        closeDescriptors(&place.worker);
        place.isBusy = false;
    }
    new (&pool.placeIsFree) std::condition_variable;
    pool.mutex.unlock();
}

// Ends the workers that nobody uses; for a library that is unloaded, and at the end of the process.
[[gnu::destructor]] void endWorkers()
{
    const std::lock_guard lock(pool.mutex);
    for (Place &place : pool.places) {
        if (!place.isBusy)
            closeDescriptors(&place.worker);
    }
}

// A free place, best with a worker in it; null if there is none.
Place *freePlace()
{
    Place *found = nullptr;
    for (std::uint32_t i = 0; i < pool.placeCount; ++i) {
        Place &place = pool.places[i];
        if (place.isBusy)
            continue;
        if (place.worker.socket != -1)
            return &place;
        found = found ? found : &place;
    }
    return found;
}

// A place as long as a request needs one.
class Turn
{
public:
    // Waits for a place. Without one the deadline has passed.
    explicit Turn(const Deadline &deadline)
    {
        std::unique_lock lock(pool.mutex);
        const auto takePlace = [this] { return (place = freePlace()) != nullptr; };
        if (!deadline)
            pool.placeIsFree.wait(lock, takePlace);
        else if (!pool.placeIsFree.wait_until(lock, *deadline, takePlace))
            return;
        place->isBusy = true;
        if (place->worker.socket != -1 && !isWaiting(place->worker))
            closeDescriptors(&place->worker); // it ended while nobody used it
    }
    // A worker that has not been kept is ended.
    ~Turn()
    {
        if (!place)
            return;
        {
            const std::lock_guard lock(pool.mutex);
            if (!isKept)
                closeDescriptors(&place->worker);
            place->isBusy = false;
        }
        pool.placeIsFree.notify_one();
    }
    Turn(const Turn &) = delete;
    Turn &operator=(const Turn &) = delete;

    explicit operator bool() const { return place; }
    WorkerDescriptors worker() const { return place->worker; }

    // Under the lock, so that no child of a fork has descriptors that it does not know of.
    bool start(const std::string &program, Starter *starter, std::string *fault)
    {
        const std::lock_guard lock(pool.mutex);
        return Api::startWorker(program, &place->worker, starter, fault);
    }
    void keepWorker() { isKept = true; }
    void dropWorker()
    {
        const std::lock_guard lock(pool.mutex);
        closeDescriptors(&place->worker);
    }

private:
    Place *place = nullptr;
    bool isKept = false;
};

Reply late()
{
    return {ORRLAYOUT_TIMED_OUT, {"the drawing was not ready in time"}};
}

// Why a worker did not say what was expected of it.
Reply failedReply(const WorkerDescriptors &worker, const Conversation &said,
                  orrlayout_status status, const char *what)
{
    if (said.isLate())
        return late();
    const std::string words = lastWords(worker.lastWords);
    if (words.ends_with("Out of memory"))
        return {ORRLAYOUT_OUT_OF_MEMORY, {"out of memory"}};
    return {status, {words.empty() ? what : std::string(what) + ": " + words}};
}

// Gives a failure, or a status of success once the worker has greeted.
Reply startIn(Turn *turn, const Deadline &deadline)
{
    std::string fault;
    Starter starter;
    if (!turn->start(workerProgram(), &starter, &fault))
        return {ORRLAYOUT_NOT_STARTED, {fault}};
    Conversation said(turn->worker(), deadline);
    Message greeting;
    if (!said.receive(&greeting)) {
        return failedReply(turn->worker(), said, ORRLAYOUT_NOT_STARTED, "the worker did not start");
    }
    if (greeting.fields != std::vector<std::string>{ORR_VERSION})
        return {ORRLAYOUT_NOT_STARTED, {"the worker is of another version than the library"}};
    return {};
}

// Sends the request to the worker, which is kept if it answers.
Reply askWorker(Turn *turn, const MessageView &request, const Deadline &deadline)
{
    Conversation said(turn->worker(), deadline);
    Message answer;
    if (!said.send(request) || !said.receive(&answer))
        return failedReply(turn->worker(), said, ORRLAYOUT_CRASHED, "the worker ended");
    turn->keepWorker();
    return {static_cast<orrlayout_status>(answer.kind), std::move(answer.fields)};
}

} // namespace

Reply ask(const MessageView &request, const Deadline &deadline)
{
    Turn turn(deadline);
    if (!turn)
        return late();
    if (turn.worker().socket != -1) {
        Reply reply = askWorker(&turn, request, deadline);
        if (reply.status != ORRLAYOUT_CRASHED)
            return reply;
        // It may have been ended by somebody while it waited. What a new one says is about the
        // request.
        turn.dropWorker();
    }
    Reply reply = startIn(&turn, deadline);
    return reply.status == ORRLAYOUT_OK ? askWorker(&turn, request, deadline) : reply;
}

} // namespace ORR::Api
