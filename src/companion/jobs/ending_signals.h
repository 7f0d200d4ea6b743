#pragma once

#include "output/files/descriptor.h"

#include <csignal>
#include <vector>

#include <poll.h>

namespace ORR::Companion {

// As long as it lives, SIGINT, SIGTERM and SIGHUP, unless they are ignored, end no wait but that of
// `poll` below, and are told by it: whoever has worker processes ends them first. One at a time.
class EndingSignals
{
public:
    EndingSignals();
    ~EndingSignals();
    EndingSignals(const EndingSignals &) = delete;
    EndingSignals &operator=(const EndingSignals &) = delete;

    // Waits until something happens to a descriptor, one of those signals comes or the time has
    // passed, in milliseconds; -1 for any time.
    void poll(std::vector<pollfd> *polled, int time) const;

    // A file that can be read from once one of those signals has come, for whoever waits by other
    // means; `poll` takes it then.
    Graph::Descriptor descriptor() const;

    // The signal that came, or 0.
    static int caught();

private:
    sigset_t held = {};
    sigset_t former = {};
};

// Ends the process by the signal, as whoever started it expects to see.
[[noreturn]] void endBySignal(int signal);

} // namespace ORR::Companion
