#pragma once

#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

#include <poll.h>

namespace ORR::Companion {

// Lets the toolkit's event loop wait for what is made for poll(2): whenever one of the descriptors
// is ready, or the time has come, there is a turn, and then they are asked for anew.
class LoopTurns
{
public:
    using Clock = std::chrono::steady_clock;

    // What is to be waited for, and until when at most, as `WorkerPool::watch` says it.
    using Watch = std::function<void(std::vector<pollfd> *polled, Clock::time_point *deadline)>;

    // The first turn is as soon as the loop runs.
    LoopTurns(Watch watch, std::function<void()> turn);

    // Has a turn as soon as the loop comes to it, since something else has happened.
    void wake();

private:
    void run();
    void add(int descriptor, QSocketNotifier::Type type);

    Watch watch;
    std::function<void()> turn;
    QTimer timer;
    std::vector<std::unique_ptr<QSocketNotifier>> notifiers;
};

} // namespace ORR::Companion
