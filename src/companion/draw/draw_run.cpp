#include "companion/draw/draw_run.h"

#include "companion/command/command_line.h"
#include "companion/command/streams.h"
#include "companion/draw/job_line.h"
#include "companion/draw/quoted_name.h"
#include "companion/draw/surroundings_stamp.h"
#include "driver/standard_streams.h"
#include "graph/limits.h"

#include <algorithm>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

namespace ORR::Companion {

namespace {

constexpr char nameOfNotes[] = ".orr-draw-notes";

// So many drawings wait in the pool for a worker; the others can wait here. With few left it is not
// waited for anything before there are more.
constexpr qsizetype enoughWaiting = 64;
constexpr qsizetype fewWaiting = 16;

// How often the line of progress moves at least, in milliseconds.
constexpr int longestWait = 500;

// Beside the outputs, so that they go together wherever they are taken. Each share has notes of its
// own, since all of them may be drawn at the same time.
QByteArray fileOfNotes(const DrawRequest &request)
{
    QByteArray file = nameOfNotes;
    if (request.shard.count > 1)
        file += '-' + QByteArray::number(request.shard.index) + "-of-"
            + QByteArray::number(request.shard.count);
    return request.folder ? *request.folder + '/' + file : file;
}

// Empty for what can't be told from what it was: a pipe can be read once only. The worker reads the
// input once more; if it changes in between, the next run sees that.
QByteArray stampOfInput(const DrawingTask &task)
{
    if (!task.hasFile)
        return stampOf(task.input, task.options);
    // Opening a pipe would already let go whoever writes to it.
    struct stat status = {};
    if (::stat(task.input.constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    const Graph::Descriptor file(
        ::open(task.input.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    if (!file)
        return {};
    const std::optional<QByteArray> bytes =
        Driver::readToEnd(file.number(), Graph::Limits::longestInput);
    return bytes ? stampOf(*bytes, task.options) : QByteArray();
}

} // namespace

DrawRun::DrawRun(const CommandCall &call_, const DrawRequest &request_)
    : call(call_), request(request_), results(call_, request_),
      pool(request_.workers, request_.settings)
{
}

int DrawRun::run()
{
    if (request.onlyChanged)
        claims.take(fileOfNotes(request), "the file of notes");
    if (const auto status = request.jobs ? openJobs() : planFiles())
        return *status;
    if (const auto status = openReport())
        return *status;
    if (const auto status = readStandardInput())
        return *status;
    if (request.onlyChanged)
        notes.emplace(fileOfNotes(request), surroundingsStamp());
    drawPlan();
    const qint64 left = plannedCount - results.counts().done();
    if (notes && !notes->save())
        tell(call.name + ": the notes for --changed can't be written\n");
    results.sumUp(EndingSignals::caught() ? std::max<qint64>(left, 0) : 0);
    if (const int signal = EndingSignals::caught())
        endBySignal(signal);
    if (!results.canGoOn())
        return WrongUse;
    return results.counts().failed > 0 ? Failed : AllWell;
}

std::optional<int> DrawRun::planFiles()
{
    for (const std::string &file : request.files)
        claims.addInput(QByteArray::fromStdString(file));
    for (const std::string &file : request.files) {
        const QByteArray input = QByteArray::fromStdString(file);
        const Plan plan = planOfFile(input, request);
        QByteArray fault = plan.fault;
        if (fault.isEmpty())
            fault = addToPlan(plan);
        if (!fault.isEmpty())
            return wrongUse(call, fault.toStdString());
    }
    return std::nullopt;
}

// What is written in a file can be looked at as a whole before anything is drawn.
std::optional<int> DrawRun::openJobs()
{
    if (*request.jobs == "-" && !call.hasInput)
        return wrongUse(call, "standard input can't be read: it is closed");
    const QByteArray name = QByteArray::fromStdString(*request.jobs);
    jobs.emplace(*request.jobs);
    if (!jobs->fault().empty())
        return wrongUse(call, quotedName(name).toStdString() + " can't be read: " + jobs->fault());
    if (const QByteArray fault = claims.take(name, "the file of jobs"); !fault.isEmpty())
        return wrongUse(call, fault.toStdString());
    if (!jobs->isRegularFile())
        return std::nullopt;
    while (jobs->wantsMore())
        jobs->read();
    std::deque<JobSource::Line> lines;
    while (jobs->hasLines())
        lines.push_back(jobs->next());
    const std::string fault = claimAll(lines);
    jobs->giveBack(std::move(lines));
    return fault.empty() ? std::nullopt : std::optional(wrongUse(call, fault));
}

// Which line asks for an output that it can't have, once all inputs are known.
std::string DrawRun::claimAll(const std::deque<JobSource::Line> &lines)
{
    std::deque<Plan> plans;
    for (const JobSource::Line &line : lines) {
        const auto job = readJobLine(line.text, request);
        if (!std::holds_alternative<LineOfJob>(job))
            continue;
        claims.addInput(std::get<LineOfJob>(job).input);
        plans.push_back(planOfJob(std::get<LineOfJob>(job), line.number, request));
    }
    for (const Plan &plan : plans) {
        for (const PlannedDrawing &drawing : plan.drawings) {
            const QByteArray fault = claims.claim(drawing.task.output, drawing.input, drawing.job);
            if (!fault.isEmpty())
                return "line " + std::to_string(drawing.job) + ": " + fault.toStdString();
        }
    }
    return {};
}

// Jobs claim their outputs once more as they come.
std::optional<int> DrawRun::openReport()
{
    if (request.report) {
        const QByteArray name = QByteArray::fromStdString(*request.report);
        std::string fault = claims.take(name, "the report").toStdString();
        if (fault.empty()) {
            fault = results.openReport();
            if (!fault.empty())
                fault = quotedName(name).toStdString() + " can't be written: " + fault;
        }
        if (!fault.empty())
            return wrongUse(call, fault);
    }
    if (request.jobs)
        claims.forgetOutputs();
    return std::nullopt;
}

// As long as this waits, a signal ends the process as ever.
std::optional<int> DrawRun::readStandardInput()
{
    if (std::ranges::count(request.files, "-") == 0)
        return std::nullopt;
    const ReadInput input = readInput(call, "-");
    if (!input.bytes)
        return wrongUse(call, "standard input can't be read: " + input.fault);
    standardInput = *input.bytes;
    return std::nullopt;
}

// Gives the fault if one of the outputs is taken; then nothing of it is planned.
QByteArray DrawRun::addToPlan(const Plan &plan)
{
    qsizetype claimed = 0;
    QByteArray fault;
    for (const PlannedDrawing &drawing : plan.drawings) {
        if (drawing.task.output != "-")
            fault = claims.claim(drawing.task.output, drawing.input, drawing.job);
        if (!fault.isEmpty())
            break;
        ++claimed;
    }
    if (!fault.isEmpty()) {
        for (const PlannedDrawing &drawing : plan.drawings.first(claimed))
            claims.release(drawing.task.output);
        return fault;
    }
    for (const PlannedDrawing &drawing : plan.drawings) {
        if (!isInShard(drawing.input, request.shard))
            continue;
        planned.push_back(drawing);
        ++plannedCount;
    }
    return {};
}

// A line of another share is left to that.
void DrawRun::takeLine(const JobSource::Line &line)
{
    if (line.text.isEmpty()) {
        results.failLine(line.number, QStringLiteral("the line is too long"));
        return;
    }
    const auto read = readJobLine(line.text, request);
    if (const auto *const fault = std::get_if<QString>(&read)) {
        results.failLine(line.number, *fault);
        return;
    }
    const LineOfJob &job = std::get<LineOfJob>(read);
    claims.addInput(job.input);
    if (!isInShard(job.input, request.shard))
        return;
    const Plan plan = planOfJob(job, line.number, request);
    QByteArray fault = plan.fault;
    if (fault.isEmpty())
        fault = addToPlan(plan);
    if (fault.isEmpty())
        results.beginJob(job, line.number, plan.drawings.size());
    else
        results.failLine(line.number, QString::fromUtf8(fault), job);
}

void DrawRun::drawPlan()
{
    const EndingSignals signals;
    while (!isDone()) {
        begin();
        for (const FinishedTask &task : pool.advance())
            finish(task);
        if (isDone() || EndingSignals::caught() || !results.canGoOn())
            break;
        const std::optional<qint64> total =
            jobs ? std::nullopt : std::optional<qint64>(plannedCount);
        results.showProgress(total);
        wait(signals);
    }
    pool.endAll();
}

void DrawRun::begin()
{
    while (jobs && jobs->hasLines() && qsizetype(planned.size()) < enoughWaiting)
        takeLine(jobs->next());
    while (!planned.empty() && pool.waiting() < enoughWaiting && results.canGoOn()) {
        beginDrawing(std::move(planned.front()));
        planned.pop_front();
    }
}

void DrawRun::beginDrawing(PlannedDrawing drawing)
{
    if (drawing.input == "-") {
        drawing.task.hasFile = false;
        drawing.task.input = standardInput;
    }
    if (notes)
        drawing.stamp = stampOfInput(drawing.task);
    if (!drawing.stamp.isEmpty() && notes->holds(drawing.task.output, drawing.stamp)) {
        end(drawing, End::Unchanged, {});
        return;
    }
    if (drawing.makesFolders)
        makeFoldersOf(drawing.task.output);
    if (drawing.task.output == "-")
        drawing.task.output.clear();
    pool.add(nextNumber, drawing.task);
    drawing.task.input.clear();
    begun.insert(nextNumber++, drawing);
}

void DrawRun::wait(const EndingSignals &signals)
{
    std::vector<pollfd> polled;
    const auto now = WorkerPool::Clock::now();
    auto deadline = WorkerPool::Clock::time_point::max();
    if (results.showsProgress())
        deadline = now + std::chrono::milliseconds(longestWait);
    pool.watch(&polled, &deadline);
    const bool isReading = readsJobs();
    if (isReading)
        polled.push_back({jobs->descriptor(), POLLIN, 0});
    if (pool.waiting() < fewWaiting && !planned.empty())
        deadline = now;
    int time = -1;
    if (deadline != WorkerPool::Clock::time_point::max())
        time = int(std::clamp<qint64>(
            std::chrono::ceil<std::chrono::milliseconds>(deadline - now).count(), 0, 60'000));
    signals.poll(&polled, time);
    if (isReading && polled.back().revents != 0)
        jobs->read();
}

// Lines are left in the pipe while there is enough to do.
bool DrawRun::readsJobs() const
{
    return jobs && jobs->wantsMore() && !jobs->hasLines();
}

bool DrawRun::isDone() const
{
    return planned.empty() && pool.isIdle() && (!jobs || jobs->isAtEnd());
}

void DrawRun::finish(const FinishedTask &task)
{
    const PlannedDrawing drawing = begun.take(task.number);
    if (task.answer.isDrawn && !drawing.stamp.isEmpty())
        notes->note(drawing.task.output, drawing.stamp);
    end(drawing, task.answer.isDrawn ? End::Drawn : End::Failed, task.answer);
}

void DrawRun::end(const PlannedDrawing &drawing, End end, const DrawingAnswer &answer)
{
    claims.release(drawing.task.output);
    results.add(drawing, end, answer);
}

} // namespace ORR::Companion
