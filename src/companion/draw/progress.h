#pragma once

#include <QtGlobal>

#include <chrono>
#include <optional>
#include <string>

namespace ORR::Companion {

// How many drawings came to which end.
struct Counts
{
    qint64 drawn = 0;
    qint64 failed = 0;
    qint64 unchanged = 0;

    qint64 done() const { return drawn + failed + unchanged; }
};

// A line on standard error that tells how far the work is, if that is a terminal.
class Progress
{
public:
    Progress();
    ~Progress() { clear(); }
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    bool isShown() const { return isTerminal; }

    // Shows it anew, not too often. `total` is not known in advance for jobs on a pipe.
    void show(const Counts &counts, std::optional<qint64> total);

    // Takes the line away, for a message in its place.
    void clear();

private:
    using Clock = std::chrono::steady_clock;

    bool isTerminal;
    bool hasLine = false;
    Clock::time_point start = Clock::now();
    Clock::time_point lastShown;
};

// The line.
std::string progressLine(const Counts &counts, std::optional<qint64> total, double seconds);

} // namespace ORR::Companion
