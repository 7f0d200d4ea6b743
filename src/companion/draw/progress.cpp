#include "companion/draw/progress.h"

#include "output/files/descriptor.h"

#include <cmath>

#include <unistd.h>

namespace ORR::Companion {

namespace {

constexpr std::chrono::milliseconds period{200};

// Both are understood by every terminal that is in use.
constexpr char toStart[] = "\r";
constexpr char cutLine[] = "\r\x1b[K";

void write(const std::string &text)
{
    Graph::writeToEnd(STDERR_FILENO, {text.data(), qsizetype(text.size())});
}

std::string duration(double seconds)
{
    const auto whole = static_cast<long long>(std::ceil(seconds));
    if (whole < 120)
        return std::to_string(whole) + " s";
    if (whole < 7200)
        return std::to_string(whole / 60) + " min";
    return std::to_string(whole / 3600) + " h";
}

} // namespace

std::string progressLine(const Counts &counts, std::optional<qint64> total, double seconds)
{
    const qint64 done = counts.done();
    std::string line = std::to_string(done);
    if (total)
        line += " of " + std::to_string(*total);
    line += " done, " + std::to_string(counts.failed) + " failed";
    if (seconds <= 0 || done == 0)
        return line;
    const double rate = double(done) / seconds;
    line += ", " + std::to_string(std::llround(rate)) + " per second";
    if (total)
        line += ", " + duration(double(*total - done) / rate) + " left";
    return line;
}

Progress::Progress() : isTerminal(::isatty(STDERR_FILENO) == 1) { }

void Progress::show(const Counts &counts, std::optional<qint64> total)
{
    const auto now = Clock::now();
    if (!isTerminal || (hasLine && now < lastShown + period))
        return;
    const double seconds = std::chrono::duration<double>(now - start).count();
    write(cutLine + progressLine(counts, total, seconds) + toStart);
    hasLine = true;
    lastShown = now;
}

void Progress::clear()
{
    if (hasLine)
        write(cutLine);
    hasLine = false;
}

} // namespace ORR::Companion
