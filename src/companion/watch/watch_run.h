#pragma once

#include "companion/command/subcommand.h"
#include "companion/draw/draw_request.h"
#include "companion/draw/planned_drawing.h"
#include "companion/findings/text_printer.h"
#include "companion/jobs/ending_signals.h"
#include "companion/jobs/worker_pool.h"
#include "companion/watch/check_process.h"
#include "companion/watch/file_watcher.h"
#include "companion/watch/settling.h"

#include <map>
#include <vector>

namespace ORR::Companion {

// The work of `orr watch`: reads the inputs that have changed, has each drawn and checked, and
// tells what came of it, until a signal ends it.
//
// An input that changes is left alone until nothing has happened to it for a moment, so that a save
// in several steps is one. What is drawn and checked are the bytes that were read then. If the
// input changes once more meanwhile, they may still be finished soon, but not hold the newer ones
// up.
class WatchRun
{
public:
    // Both must live as long.
    WatchRun(const CommandCall &call, const DrawRequest &request, bool polls);

    // Gives the status of wrong use, which has been told; otherwise ends by a signal.
    int run();

private:
    using Clock = WorkerPool::Clock;

    // The drawing and the check of what an input was.
    struct Round
    {
        QByteArray bytes;
        QList<DrawingAnswer> answers; // one for each drawing
        qsizetype left = 0; // drawings that are not finished
        std::unique_ptr<CheckProcess> check; // none once it is at its end
        Clock::time_point checkEnds; // at the latest

        bool isOver() const { return left == 0 && !check; }
    };

    struct Input
    {
        QByteArray name;
        QList<PlannedDrawing> drawings;
        bool isDue = true; // to be read
        Settling settling; // it is due at the end
        std::optional<Clock::time_point> overdue; // when the round has to make way for the next one
        QByteArray stamp; // of the last round
        bool hasFailed = false; // that has
        std::string fault; // why it can't be read, once that was told
        std::optional<Round> round;
    };

    // A task of the pool, by its number.
    struct Begun
    {
        qsizetype input;
        qsizetype drawing;
    };

    std::optional<int> plan();
    std::string addInput(const QByteArray &name, OutputClaims *claims);

    void noteEvents();
    void begin();
    void read(qsizetype index);
    void beginRound(qsizetype index, const QByteArray &bytes);
    void addTask(qint64 number);
    void finish(const FinishedTask &task);
    void advanceChecks();
    void tellCheck(const Input &input, const CheckProcess &check);
    void endRounds();
    void cancel(qsizetype index);
    bool hasRoom() const;
    void wait(const EndingSignals &signals);

    const CommandCall &call;
    const DrawRequest &request;
    TextForm form;
    FileWatcher watcher;
    bool hasToldWatcher = false;
    WorkerPool pool;
    std::vector<Input> inputs;
    std::map<qint64, Begun> begun;
    qint64 nextNumber = 0;
    int rounds = 0;
    bool isWritable = true;
};

} // namespace ORR::Companion
