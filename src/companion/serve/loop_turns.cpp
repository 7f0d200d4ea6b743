#include "companion/serve/loop_turns.h"

#include <algorithm>

namespace ORR::Companion {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds longestWait{60'000};

} // namespace

LoopTurns::LoopTurns(Watch watch_, std::function<void()> turn_)
    : watch(std::move(watch_)), turn(std::move(turn_))
{
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { run(); });
    wake();
}

void LoopTurns::wake()
{
    timer.start(0);
}

// A turn may close descriptors, and others may get their numbers: no notifier outlives it.
void LoopTurns::run()
{
    notifiers.clear();
    turn();
    std::vector<pollfd> polled;
    auto deadline = Clock::time_point::max();
    const auto now = Clock::now();
    watch(&polled, &deadline);
    for (const pollfd &one : polled) {
        if ((one.events & POLLIN) != 0)
            add(one.fd, QSocketNotifier::Read);
        if ((one.events & POLLOUT) != 0)
            add(one.fd, QSocketNotifier::Write);
    }
    const auto end = std::min(deadline, now + longestWait);
    timer.start(std::max(std::chrono::ceil<milliseconds>(end - now), milliseconds(0)));
}

// The turn comes by the timer: a notifier must not end while it tells.
void LoopTurns::add(int descriptor, QSocketNotifier::Type type)
{
    notifiers.push_back(std::make_unique<QSocketNotifier>(descriptor, type));
    QSocketNotifier *const notifier = notifiers.back().get();
    QObject::connect(notifier, &QSocketNotifier::activated, &timer, [this, notifier] {
        notifier->setEnabled(false);
        wake();
    });
}

} // namespace ORR::Companion
