#pragma once

#include "companion/command/subcommand.h"
#include "companion/draw/planned_drawing.h"
#include "companion/draw/progress.h"
#include "output/files/descriptor.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>

namespace ORR::Companion {

enum class End { Drawn, Failed, Unchanged };

// What became of the drawings, for everybody who is to be told: the user, who waits at a jobs'
// answers, the reader of the report.
class Results
{
public:
    // `call` must live as long.
    Results(const CommandCall &call, const DrawRequest &request);

    // Why the report can't be written; empty if it can, or none is wanted. To be called first.
    std::string openReport();

    // A job of so many drawings that begins.
    void beginJob(const LineOfJob &job, qint64 line, qsizetype drawings);
    // A line that is no job, or a job that can't be done.
    void failLine(qint64 line, const QString &message, const LineOfJob &job = {});
    // A drawing at its end. A drawing in memory goes to standard output.
    void add(const PlannedDrawing &drawing, End end, const DrawingAnswer &answer);

    // False once nobody can be told any more; that has been said.
    bool canGoOn() const { return isWritable; }
    const Counts &counts() const { return all; }
    void showProgress(std::optional<qint64> total) { progress.show(all, total); }
    bool showsProgress() const { return progress.isShown(); }

    // The last line. `left`: drawings that were not come to.
    void sumUp(qint64 left);

private:
    struct Job
    {
        QJsonObject answer; // so far, but for the drawings
        QJsonArray drawings;
        qsizetype left = 0;
        Counts counts;
    };

    void count(End end, Counts *counts);
    void tellFailure(const PlannedDrawing &drawing, const QByteArray &message);
    void answer(const QJsonObject &line);
    void addToJob(const PlannedDrawing &drawing, End end, const QJsonObject &result);

    const CommandCall &call;
    bool hasJobs;
    bool hasFormats; // more than one of each input
    bool tellsUnchanged;
    std::optional<std::string> reportName;
    Graph::Descriptor report;
    QHash<qint64, Job> jobs; // by their lines
    Counts all;
    Progress progress;
    bool isWritable = true;
};

} // namespace ORR::Companion
