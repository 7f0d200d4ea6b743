#pragma once

#include "orrlayout/orrlayout.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

// What came of a call to draw.
struct Drawn
{
    orrlayout_status status = ORRLAYOUT_OK;
    std::string drawing;
    std::string message;
};

// Draws by the C function, and frees what it gives. Fails where it gives what is not promised: a
// drawing and a message, or neither.
Drawn drawn(const std::string &dot, const orrlayout_options *options);
Drawn drawn(const std::string &dot, const char *engine, const char *format = "svg");

// A small graph that every engine draws.
inline constexpr char smallGraph[] = "digraph { a [area=3 label=Alpha]; b [area=1]; }";

// The processes that draw for this one, and for those that it forks.
std::vector<pid_t> workers();
// The same, once they are so many; after ten seconds as many as there are.
std::vector<pid_t> workersOnce(size_t count);

// Kills them all; none is left of this process and of those that it forked and that have ended.
void killWorkers();

// What a child of this process, a fork, returns from the function: 0 to 125. Fails if it ends
// otherwise, or takes longer than a minute.
int inChild(const std::function<int()> &function);
