#include "companion/draw/results.h"

#include "companion/command/streams.h"
#include "companion/draw/quoted_name.h"
#include "output/files/file_name.h"

#include <QJsonDocument>

#include <cerrno>
#include <cstring>

#include <fcntl.h>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

QString wordOf(End end)
{
    switch (end) {
    case End::Drawn:
        return u"drawn"_s;
    case End::Failed:
        return u"failed"_s;
    case End::Unchanged:
        return u"unchanged"_s;
    }
    return {};
}

QJsonObject resultOf(const PlannedDrawing &drawing, End end, const DrawingAnswer &answer)
{
    QJsonObject result{
        {u"output"_s, Graph::fileNameText(drawing.task.output)},
        {u"status"_s, wordOf(end)},
        {u"milliseconds"_s, double(answer.microseconds) / 1000},
    };
    if (!answer.message.isEmpty())
        result.insert(u"message"_s, QString::fromUtf8(answer.message));
    if (answer.peakMemory > 0)
        result.insert(u"peakMemory"_s, answer.peakMemory);
    return result;
}

QByteArray lineOf(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace

Results::Results(const CommandCall &call_, const DrawRequest &request)
    : call(call_), hasJobs(request.jobs.has_value()), hasFormats(request.kinds.size() > 1),
      tellsUnchanged(request.onlyChanged), reportName(request.report)
{
}

std::string Results::openReport()
{
    if (!reportName)
        return {};
    report = Graph::Descriptor(
        ::open(reportName->c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOCTTY, 0666));
    return report ? std::string() : std::strerror(errno);
}

void Results::beginJob(const LineOfJob &job, qint64 line, qsizetype drawings)
{
    Job begun;
    begun.answer = {{u"line"_s, line}, {u"in"_s, Graph::fileNameText(job.input)}};
    if (!job.id.isUndefined())
        begun.answer.insert(u"id"_s, job.id);
    begun.left = drawings;
    jobs.insert(line, begun);
}

void Results::failLine(qint64 line, const QString &message, const LineOfJob &job)
{
    ++all.failed;
    QJsonObject failed{
        {u"line"_s, line}, {u"status"_s, wordOf(End::Failed)}, {u"message"_s, message}};
    if (!job.input.isEmpty())
        failed.insert(u"in"_s, Graph::fileNameText(job.input));
    if (!job.id.isUndefined())
        failed.insert(u"id"_s, job.id);
    answer(failed);
}

void Results::add(const PlannedDrawing &drawing, End end, const DrawingAnswer &answer)
{
    count(end, &all);
    if (end == End::Failed && !hasJobs)
        tellFailure(drawing, answer.message);
    if (end == End::Drawn && drawing.task.output.isEmpty() && !print(call, answer.drawing))
        isWritable = false;
    if (!hasJobs && !report)
        return;
    QJsonObject result = resultOf(drawing, end, answer);
    if (hasJobs)
        addToJob(drawing, end, result);
    if (!report)
        return;
    result.insert(u"input"_s, Graph::fileNameText(drawing.input));
    if (isWritable && !Graph::writeToEnd(report.number(), lineOf(result))) {
        progress.clear();
        tell(call.name + ": " + quotedName(QByteArray::fromStdString(*reportName)).toStdString()
             + " can't be written: " + std::strerror(errno) + '\n');
        isWritable = false;
    }
}

void Results::sumUp(qint64 left)
{
    progress.clear();
    std::string line = call.name + ": " + std::to_string(all.drawn) + " drawn, "
        + std::to_string(all.failed) + " failed";
    if (tellsUnchanged)
        line += ", " + std::to_string(all.unchanged) + " unchanged";
    if (left > 0)
        line += ", " + std::to_string(left) + " not begun or not finished";
    tell(line + '\n');
}

void Results::count(End end, Counts *counts)
{
    counts->drawn += end == End::Drawn;
    counts->failed += end == End::Failed;
    counts->unchanged += end == End::Unchanged;
}

void Results::tellFailure(const PlannedDrawing &drawing, const QByteArray &message)
{
    progress.clear();
    QByteArray name = drawing.input == "-" ? "standard input" : quotedName(drawing.input);
    if (hasFormats)
        name += ": " + quotedName(drawing.task.output);
    tell(call.name + ": " + (name + ": " + message).toStdString() + '\n');
}

void Results::answer(const QJsonObject &line)
{
    progress.clear();
    if (isWritable && !print(call, lineOf(line)))
        isWritable = false;
}

void Results::addToJob(const PlannedDrawing &drawing, End end, const QJsonObject &result)
{
    Job &job = jobs[drawing.job];
    job.drawings.append(result);
    count(end, &job.counts);
    if (--job.left > 0)
        return;
    const End whole = job.counts.failed > 0 ? End::Failed
        : job.counts.drawn > 0              ? End::Drawn
                                            : End::Unchanged;
    job.answer.insert(u"status"_s, wordOf(whole));
    job.answer.insert(u"drawings"_s, job.drawings);
    answer(job.answer);
    jobs.remove(drawing.job);
}

} // namespace ORR::Companion
