#include "companion/watch/watch_run.h"

#include "companion/command/command_line.h"
#include "companion/command/streams.h"
#include "companion/draw/change_notes.h"
#include "companion/draw/output_names.h"
#include "companion/watch/watch_messages.h"
#include "companion/watch/whole_file.h"

#include <algorithm>
#include <utility>

namespace ORR::Companion {

namespace {

using Clock = WorkerPool::Clock;
using std::chrono::milliseconds;

// What is at work on an input that has changed may still be finished.
constexpr milliseconds graceOfRound{100};

// The check has to start its toolkit within its time, a worker has that behind it.
constexpr milliseconds startOfCheck{1000};

} // namespace

WatchRun::WatchRun(const CommandCall &call_, const DrawRequest &request_, bool polls)
    : call(call_), request(request_), form{printsToTerminal(), printsColors()}, watcher(polls),
      pool(request_.workers, request_.settings)
{
}

int WatchRun::run()
{
    if (const std::optional<int> status = plan())
        return *status;
    const EndingSignals signals;
    while (!EndingSignals::caught() && isWritable) {
        noteEvents();
        begin();
        for (const FinishedTask &task : pool.advance())
            finish(task);
        advanceChecks();
        endRounds();
        if (isWritable)
            wait(signals);
    }
    inputs.clear();
    pool.endAll();
    if (const int signal = EndingSignals::caught())
        endBySignal(signal);
    return WrongUse;
}

std::optional<int> WatchRun::plan()
{
    OutputClaims claims;
    for (const std::string &file : request.files)
        claims.addInput(QByteArray::fromStdString(file));
    for (const std::string &file : request.files) {
        const std::string fault = addInput(QByteArray::fromStdString(file), &claims);
        if (!fault.empty())
            return wrongUse(call, fault);
    }
    return std::nullopt;
}

// Gives the fault. An input that is named twice is one.
std::string WatchRun::addInput(const QByteArray &name, OutputClaims *claims)
{
    if (std::ranges::find(inputs, name, &Input::name) != inputs.end())
        return {};
    const Plan plan = planOfFile(name, request);
    if (!plan.fault.isEmpty())
        return plan.fault.toStdString();
    for (const PlannedDrawing &drawing : plan.drawings) {
        const QByteArray fault = claims->claim(drawing.task.output, name);
        if (!fault.isEmpty())
            return fault.toStdString();
    }
    Input input;
    input.name = name;
    input.drawings = plan.drawings;
    inputs.push_back(std::move(input));
    return {};
}

void WatchRun::noteEvents()
{
    const auto now = Clock::now();
    for (const FileEvent &event : watcher.take())
        inputs[size_t(event.file)].settling.note(event.isWhole, now);
    if (watcher.fault().isEmpty() || hasToldWatcher)
        return;
    tell(call.name + ": " + watcher.fault().toStdString()
         + "; looking at the inputs twice a second\n");
    hasToldWatcher = true;
}

void WatchRun::begin()
{
    const auto now = Clock::now();
    for (size_t i = 0; i < inputs.size(); ++i) {
        Input &input = inputs[i];
        input.isDue = input.settling.takeIfOver(now) || input.isDue;
        if (input.overdue && *input.overdue <= now)
            cancel(qsizetype(i));
        if (input.isDue && (input.round || hasRoom()))
            read(qsizetype(i));
    }
}

void WatchRun::read(qsizetype index)
{
    Input &input = inputs[size_t(index)];
    input.isDue = false;
    watcher.follow(index, input.name);
    const WholeFile file = readWholeFile(input.name);
    if (!file.isSteady) {
        input.settling.beginAgain(Clock::now());
        return;
    }
    if (!file.bytes) {
        if (file.fault != std::exchange(input.fault, file.fault))
            tell(waitingMessage(call.name, input.name, file.fault));
        return;
    }
    input.fault.clear();
    const QByteArray stamp = stampOf(*file.bytes, {});
    const bool isSame = stamp == input.stamp;
    if (isSame)
        input.overdue.reset();
    else if (input.round && !input.overdue)
        input.overdue = Clock::now() + graceOfRound;
    if (input.round || (isSame && !input.hasFailed))
        return;
    input.stamp = stamp;
    beginRound(index, *file.bytes);
}

void WatchRun::beginRound(qsizetype index, const QByteArray &bytes)
{
    Input &input = inputs[size_t(index)];
    input.hasFailed = false;
    input.round = Round();
    input.round->bytes = bytes;
    input.round->left = input.drawings.size();
    input.round->answers.resize(input.drawings.size());
    ++rounds;
    for (qsizetype i = 0; i < input.drawings.size(); ++i) {
        if (input.drawings.at(i).makesFolders)
            makeFoldersOf(input.drawings.at(i).task.output);
        begun.insert({nextNumber, {index, i}});
        addTask(nextNumber++);
    }
    const QString engine = QString::fromUtf8(request.kinds.first().engine);
    input.round->check = std::make_unique<CheckProcess>(CheckTask{bytes, input.name, engine, form});
    input.round->checkEnds = request.settings.timeLimit.count() > 0
        ? Clock::now() + request.settings.timeLimit + startOfCheck
        : Clock::time_point::max();
}

void WatchRun::addTask(qint64 number)
{
    const Begun &place = begun.at(number);
    const Input &input = inputs[size_t(place.input)];
    DrawingTask task = input.drawings.at(place.drawing).task;
    task.hasFile = false;
    task.input = input.round->bytes;
    pool.add(number, std::move(task));
}

void WatchRun::finish(const FinishedTask &task)
{
    const auto found = begun.find(task.number);
    if (found == begun.end())
        return;
    const Begun place = found->second;
    begun.erase(found);
    Input &input = inputs[size_t(place.input)];
    input.round->answers[place.drawing] = task.answer;
    input.hasFailed = input.hasFailed || !task.answer.isDrawn;
    if (--input.round->left == 0)
        tell(drawingMessages(call.name, input.name, input.drawings, input.round->answers));
}

void WatchRun::advanceChecks()
{
    for (Input &input : inputs) {
        if (!input.round || !input.round->check)
            continue;
        CheckProcess &check = *input.round->check;
        check.advance();
        if (check.isAtEnd())
            tellCheck(input, check);
        else if (Clock::now() >= input.round->checkEnds)
            tell(inputMessage(call.name, input.name, "the check takes too long"));
        else
            continue;
        input.round->check.reset();
    }
}

void WatchRun::tellCheck(const Input &input, const CheckProcess &check)
{
    if (!check.fault().isEmpty())
        tell(inputMessage(call.name, input.name, check.fault()));
    if (!check.findings().isEmpty() && !print(call, check.findings()))
        isWritable = false;
}

// What has changed meanwhile is next.
void WatchRun::endRounds()
{
    for (Input &input : inputs) {
        if (!input.round || !input.round->isOver())
            continue;
        input.round.reset();
        --rounds;
        if (std::exchange(input.overdue, std::nullopt))
            input.isDue = true;
    }
}

// The pool only ends all of its workers. What else they were at is given to new ones.
void WatchRun::cancel(qsizetype index)
{
    Input &input = inputs[size_t(index)];
    const bool isDrawn = input.round->left == 0;
    std::erase_if(begun, [&](const auto &task) { return task.second.input == index; });
    if (!isDrawn) {
        tell(inputMessage(call.name, input.name, "has changed before it was drawn"));
        pool.endAll();
        for (const auto &[number, place] : begun)
            addTask(number);
    }
    input.round.reset();
    --rounds;
    input.stamp.clear();
    input.overdue.reset();
    input.isDue = true;
}

// No more inputs at a time than there are workers, so that one that is never finished has none
// behind it.
bool WatchRun::hasRoom() const
{
    return rounds < request.workers;
}

void WatchRun::wait(const EndingSignals &signals)
{
    std::vector<pollfd> polled;
    const auto now = Clock::now();
    auto deadline = Clock::time_point::max();
    watcher.watch(&polled, &deadline);
    pool.watch(&polled, &deadline);
    for (const Input &input : inputs) {
        if (input.isDue && hasRoom())
            deadline = now;
        deadline = std::min(
            {deadline, input.settling.end().value_or(deadline), input.overdue.value_or(deadline)});
        if (!input.round || !input.round->check)
            continue;
        polled.push_back({input.round->check->descriptor(), POLLIN, 0});
        deadline = std::min(deadline, input.round->checkEnds);
    }
    int time = -1;
    if (deadline != Clock::time_point::max())
        time = int(
            std::clamp<qint64>(std::chrono::ceil<milliseconds>(deadline - now).count(), 0, 60'000));
    signals.poll(&polled, time);
}

} // namespace ORR::Companion
