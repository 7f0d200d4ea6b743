#pragma once

#include <QtGlobal>

#include <chrono>

// What a visitor and a text may cost the server, in one place. Whoever has the token may draw as
// much as workers can; the limits keep the server itself small and quick, also for those who have
// not.
namespace ORR::Companion::ServeLimits {

using std::chrono::milliseconds;

// Bytes of a text, that of the file too. Somebody writes it in a browser, whose text areas are slow
// from a tenth of that on.
inline constexpr qint64 longestText = 16 << 20;

// Bytes of the head of a request. A browser sends less than 2,000.
inline constexpr qint64 longestHead = 16 << 10;

// Open at once. A browser has six of one server, and each window one that waits for changes.
inline constexpr int mostConnections = 64;

// For the head of a request, for all of it and its answer, and for the visitor to close the
// connection once the answer is sent.
inline constexpr milliseconds headTime{10'000};
inline constexpr milliseconds visitTime{120'000};
inline constexpr milliseconds partingTime{1'000};

// An answer about a state that has not changed is given by then, before anything between the two
// takes the silence for an end.
inline constexpr milliseconds stateTime{20'000};

// For one drawing, one page or one check, as of `orr draw --timeout --memory`. A page for 100,000
// objects takes less than half of either.
inline constexpr milliseconds taskTime{10'000};
inline constexpr qint64 taskMemory = 1024; // megabytes

// What is at work on a text when the next one comes may still be finished, longer than a worker
// takes to start: so there is something to see for those who type without a pause, and nobody waits
// long for what is outdated.
inline constexpr milliseconds graceTime{400};

// Bytes of a page, and how many pages are kept: a window may ask for one while the next are drawn.
inline constexpr qint64 largestPage = 128 << 20;
inline constexpr qsizetype mostPages = 3;

// The port, if none is asked for, and how many behind it are tried while others have them.
inline constexpr quint16 usualPort = 8737;
inline constexpr quint16 furtherPorts = 20;

} // namespace ORR::Companion::ServeLimits
