#include "companion/watch/settling.h"

#include <algorithm>

namespace ORR::Companion {

namespace {

using std::chrono::milliseconds;

// If it looks whole, and if it is being written, or was taken away and may come again.
constexpr milliseconds quiet{40};
constexpr milliseconds longQuiet{500};

// One that is saved without a pause is read nevertheless.
constexpr milliseconds longestUnrest{1000};

} // namespace

void Settling::note(bool isWhole, Clock::time_point now)
{
    if (!first)
        first = now;
    settled = isWhole ? std::min(now + quiet, *first + longestUnrest) : now + longQuiet;
}

void Settling::beginAgain(Clock::time_point now)
{
    settled = now + quiet;
}

bool Settling::takeIfOver(Clock::time_point now)
{
    if (!settled || *settled > now)
        return false;
    settled.reset();
    first.reset();
    return true;
}

} // namespace ORR::Companion
