#include "companion/jobs/ending_signals.h"

#include <cstdlib>

#include <sys/signalfd.h>

namespace ORR::Companion {

namespace {

volatile std::sig_atomic_t caughtSignal = 0;

constexpr int endingSignals[] = {SIGINT, SIGTERM, SIGHUP};

void note(int signal)
{
    caughtSignal = signal;
}

} // namespace

EndingSignals::EndingSignals()
{
    caughtSignal = 0;
    ::sigemptyset(&held);
    for (const int signal : endingSignals) {
        struct sigaction action = {};
        ::sigaction(signal, nullptr, &action);
        if (action.sa_handler == SIG_IGN)
            continue;
        ::sigaddset(&held, signal);
        action = {};
        action.sa_handler = note;
        ::sigaction(signal, &action, nullptr);
    }
    ::sigprocmask(SIG_BLOCK, &held, &former);
}

EndingSignals::~EndingSignals()
{
    ::sigprocmask(SIG_SETMASK, &former, nullptr);
}

void EndingSignals::poll(std::vector<pollfd> *polled, int time) const
{
    const timespec limit{time / 1000, time % 1000 * 1'000'000L};
    ::ppoll(polled->data(), polled->size(), time < 0 ? nullptr : &limit, &former);
}

Graph::Descriptor EndingSignals::descriptor() const
{
    return Graph::Descriptor(::signalfd(-1, &held, SFD_CLOEXEC | SFD_NONBLOCK));
}

int EndingSignals::caught()
{
    return caughtSignal;
}

void endBySignal(int signal)
{
    std::signal(signal, SIG_DFL);
    sigset_t it;
    ::sigemptyset(&it);
    ::sigaddset(&it, signal);
    ::sigprocmask(SIG_UNBLOCK, &it, nullptr);
    ::raise(signal);
    std::_Exit(128 + signal);
}

} // namespace ORR::Companion
