#pragma once

#include "companion/draw/change_notes.h"
#include "companion/draw/job_source.h"
#include "companion/draw/results.h"
#include "companion/jobs/ending_signals.h"
#include "companion/jobs/worker_pool.h"

#include <deque>

namespace ORR::Companion {

// The work of `orr draw`: plans drawings, hands them to the workers, and tells what becomes of
// them.
class DrawRun
{
public:
    // Both must live as long.
    DrawRun(const CommandCall &call, const DrawRequest &request);

    // Does all of it. Gives the status, or does not return after a signal that ends the process.
    int run();

private:
    // Each gives the status of wrong use, which has been told, or nothing.
    std::optional<int> planFiles();
    std::optional<int> openJobs();
    std::optional<int> openReport();
    std::optional<int> readStandardInput();

    std::string claimAll(const std::deque<JobSource::Line> &lines);
    QByteArray addToPlan(const Plan &plan);
    void takeLine(const JobSource::Line &line);
    void drawPlan();
    void begin();
    void beginDrawing(PlannedDrawing drawing);
    void wait(const EndingSignals &signals);
    bool readsJobs() const;
    bool isDone() const;
    void finish(const FinishedTask &task);
    void end(const PlannedDrawing &drawing, End end, const DrawingAnswer &answer);

    const CommandCall &call;
    const DrawRequest &request;
    Results results;
    OutputClaims claims;
    WorkerPool pool;
    std::optional<ChangeNotes> notes;
    QByteArray standardInput; // if it is an input
    std::optional<JobSource> jobs;
    std::deque<PlannedDrawing> planned; // not begun
    QHash<qint64, PlannedDrawing> begun; // by the numbers of their tasks
    qint64 nextNumber = 0;
    qint64 plannedCount = 0;
};

} // namespace ORR::Companion
