#pragma once

#include <chrono>
#include <optional>

namespace ORR::Companion {

// When a file that is being saved is to be read: once nothing has happened to it for a moment, so
// that a save in several steps is one.
class Settling
{
public:
    using Clock = std::chrono::steady_clock;

    // Something happened to the file. `isWhole`: see `FileEvent`.
    void note(bool isWhole, Clock::time_point now);
    // It was not steady while it was read.
    void beginAgain(Clock::time_point now);

    // Until when it is left alone; nothing if nothing has happened.
    const std::optional<Clock::time_point> &end() const { return settled; }
    // Whether it is to be read now. What happened until then is forgotten if it is.
    bool takeIfOver(Clock::time_point now);

private:
    std::optional<Clock::time_point> first; // event since it was read
    std::optional<Clock::time_point> settled;
};

} // namespace ORR::Companion
