#pragma once

#include "companion/command/subcommand.h"
#include "companion/jobs/worker_task.h"

#include <QString>

namespace ORR::Companion {

// What a worker makes of a task, but for the time and the memory that it took. The process has
// prepared itself to draw (drawing/job.h).
//
// call: of the worker, whose standard input a task may name. home: that of the installation.
DrawingAnswer answerTo(const WorkerTask &task, const CommandCall &call, const QString &home);

} // namespace ORR::Companion
