#include "companion/jobs/task_answers.h"

#include "companion/check/check_text.h"
#include "companion/command/streams.h"
#include "companion/findings/json_printer.h"
#include "companion/findings/nearest_word.h"
#include "companion/page/page_drawing.h"
#include "drawing/job.h"
#include "drawing/layout_table.h"
#include "graph/message_text.h"
#include "output/files/file_name.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

DrawingAnswer failure(const QByteArray &message)
{
    return {.message = message};
}

// Why a file could not be written, as far as its folder tells; empty if that is all right.
QByteArray folderFault(const QByteArray &output)
{
    const qsizetype slash = output.lastIndexOf('/');
    const QByteArray folder =
        slash < 0 ? QByteArray(".") : output.first(std::max(slash, qsizetype(1)));
    if (::access(folder.constData(), W_OK) == 0)
        return {};
    return "; its folder: " + QByteArray(std::strerror(errno));
}

// What the system said last, if only writing can have failed that way.
QByteArray writingFault(int error)
{
    for (const int known : {ENOSPC, EDQUOT, EFBIG, EIO, EROFS, EISDIR, ELOOP, ENAMETOOLONG}) {
        if (error == known)
            return "; " + QByteArray(std::strerror(error));
    }
    return {};
}

// Which engine there is not, and which may be meant; empty if none was named.
QByteArray engineFault(const QString &engine)
{
    if (engine.isEmpty())
        return {};
    const QString suggestion = didYouMean(engine, Drawing::layoutNames());
    return (u"; there is no engine '"_s + Graph::messageText(engine) + u'\''
            + (suggestion.isEmpty() ? QString() : u"; "_s + suggestion))
        .toUtf8();
}

DrawingAnswer answerTo(const DrawingTask &task, const CommandCall &call, const QString &home)
{
    QByteArray bytes = task.input;
    if (task.hasFile) {
        const ReadInput input = readInput(call, task.input.toStdString());
        if (!input.bytes)
            return failure("the input can't be read: " + QByteArray::fromStdString(input.fault));
        bytes = *input.bytes;
    }
    Drawing::Job job{.input = bytes,
                     .engine = QString::fromUtf8(task.options.engine),
                     .format = static_cast<Drawing::Format>(task.options.format),
                     .htmlLabels = task.options.htmlLabels,
                     .homeDirectory = home,
                     .extras = {.scale = task.options.scale,
                                .background = QString::fromUtf8(task.options.background),
                                .embedded = task.options.embedded}};
    const Drawing::Reading reading = Drawing::readGraph(job);
    if (!reading.graph)
        return failure(Graph::printableMessage(reading.outcome.message).trimmed().toUtf8());
    if (job.engine.isEmpty())
        job.engine = reading.graph->root()->attributes.value(u"layout"_s);

    DrawingAnswer answer;
    const bool isFile = !task.output.isEmpty();
    const Graph::OutputTarget target = isFile
        ? Graph::OutputTarget(Graph::fileNameText(task.output))
        : Drawing::inMemory(&answer.drawing, job.format);
    errno = 0;
    const Drawing::Outcome outcome = Drawing::drawGraph(job, reading.graph.get(), target);
    const int error = errno;
    answer.isDrawn = outcome.fault == Drawing::Outcome::None;
    answer.message = Graph::printableMessage(outcome.message).trimmed().toUtf8();
    if (outcome.fault == Drawing::Outcome::Engine)
        answer.message += engineFault(job.engine);
    if (outcome.fault == Drawing::Outcome::Drawing && isFile) {
        const QByteArray fault = folderFault(task.output);
        answer.message += fault.isEmpty() ? writingFault(error) : fault;
    }
    return answer;
}

DrawingAnswer answerTo(const PageTask &task)
{
    const MadePage page = makePage({.input = task.input,
                                    .engine = QString::fromUtf8(task.engine),
                                    .fallbackTitle = QString::fromUtf8(task.fallbackTitle),
                                    .htmlLabels = task.htmlLabels});
    if (page.document.isEmpty())
        return failure(Graph::printableMessage(page.fault).toUtf8());
    if (task.mostBytes > 0 && page.document.size() > task.mostBytes)
        return failure("the page has more than " + QByteArray::number(task.mostBytes >> 20)
                       + " MB");
    return {.isDrawn = true, .drawing = page.document};
}

DrawingAnswer answerTo(const FindingsTask &task)
{
    const QString engine =
        task.engine.isEmpty() ? engineNamedBy(task.input) : QString::fromUtf8(task.engine);
    const FileFindings found{.file = {}, .findings = checkText(task.input, {engine})};
    return {.isDrawn = true, .drawing = findingsAsJson({found})};
}

} // namespace

DrawingAnswer answerTo(const WorkerTask &task, const CommandCall &call, const QString &home)
{
    if (const auto *const drawing = std::get_if<DrawingTask>(&task))
        return answerTo(*drawing, call, home);
    if (const auto *const page = std::get_if<PageTask>(&task))
        return answerTo(*page);
    return answerTo(std::get<FindingsTask>(task));
}

} // namespace ORR::Companion
