#pragma once

#include "companion/draw/draw_request.h"
#include "companion/draw/output_names.h"

#include <QJsonValue>

// From what was asked for to the drawings that are to be made.
namespace ORR::Companion {

// One drawing, and whom to tell of it.
struct PlannedDrawing
{
    DrawingTask task;
    QByteArray input; // as it was named; "-" for standard input
    QByteArray stamp = {}; // of what it is made from, if that matters
    bool makesFolders = false; // those on the way to the output
    qint64 job = -1; // the line of the job that it belongs to, from 1; none for -1
};

// A job of a file of jobs: an input and what is to become of it.
struct LineOfJob
{
    QJsonValue id = QJsonValue::Undefined; // anything that tells the asker what this is about;
                                           // undefined for none
    QByteArray input = {};
    QList<DrawingOptions> kinds = {};
    QList<QByteArray> outputs = {}; // as many, or none for those that the request gives
};

// The drawings of an input, or why there can't be any.
struct Plan
{
    QList<PlannedDrawing> drawings;
    QByteArray fault = {};
};

// Of an input that the request names.
Plan planOfFile(const QByteArray &input, const DrawRequest &request);

// Of a job, which has the number of its line.
Plan planOfJob(const LineOfJob &job, qint64 line, const DrawRequest &request);

// Whether an input belongs to the share: a hash of its name as it was given decides (FNV-1a, so
// that it is the same everywhere and for all times).
bool isInShard(const QByteArray &input, const Shard &shard);

} // namespace ORR::Companion
