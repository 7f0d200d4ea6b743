#pragma once

#include "companion/command/subcommand.h"

namespace ORR::Companion {

// How a worker is told apart from what users call: the first argument of `orr draw`.
inline constexpr char workerArgument[] = "--as-worker";

// A worker, see `Workers::startWorker`: does one `WorkerTask` after the other and answers each with
// a `DrawingAnswer`, in the same order, until there are no more. Before that it greets with
// the message of a failed start, empty for none; with one it ends.
//
// Its arguments: how many megabytes a drawing may take beyond what the worker has after its start,
// 0 for any number, and "1" if it is to measure the peak of the memory.
//
// Standard error is emptied before each drawing. The last line in there, if the worker ends with a
// status of failure, says why.
int runWorker(const CommandCall &call);

} // namespace ORR::Companion
