#pragma once

#include "companion/draw/asked_extras.h"
#include "companion/jobs/drawing_task.h"
#include "companion/jobs/worker_process.h"

#include <QByteArray>
#include <QList>

#include <optional>
#include <string>
#include <vector>

namespace ORR::Companion {

// One of several equal parts of the inputs, counted from 1.
struct Shard
{
    quint64 index = 1;
    quint64 count = 1;
};

// What `orr draw` was asked to do.
struct DrawRequest
{
    QList<DrawingOptions> kinds; // one for each format, with the extras that it takes
    AskedExtras extras;
    std::optional<QByteArray> folder; // of the outputs; beside the inputs if there is none
    std::optional<QByteArray> output; // of the only drawing; "-" for standard output
    std::optional<std::string> jobs; // the file with the lines of jobs; "-" for standard input
    std::vector<std::string> files; // otherwise the inputs; "-" for standard input
    int workers = 1;
    WorkerSettings settings;
    bool onlyChanged = false;
    Shard shard;
    std::optional<std::string> report;
};

} // namespace ORR::Companion
