#include "companion/jobs/worker.h"

#include "companion/command/streams.h"
#include "companion/findings/nearest_word.h"
#include "companion/jobs/drawing_task.h"
#include "companion/jobs/value_bytes.h"
#include "device/text_widths.h"
#include "drawing/environment.h"
#include "drawing/home_directory.h"
#include "drawing/job.h"
#include "drawing/layout_table.h"
#include "drawing/sudden_end.h"
#include "drawing/toolkit.h"
#include "graph/message_text.h"
#include "output/files/descriptor.h"
#include "output/files/file_name.h"
#include "workers/requests.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// The terminal tells its signals to all processes of a group; it is the parent that ends workers.
// A parent that is gone needs none.
void belongToParent()
{
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGHUP, SIG_IGN);
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
}

// A number of a file in which the system tells about this process, behind `key`; 0 if there is
// none.
qint64 systemNumber(const char *file, QByteArrayView key)
{
    const Graph::Descriptor opened(::open(file, O_RDONLY | O_CLOEXEC));
    char text[8192];
    const ssize_t count = ::read(opened.number(), text, sizeof text - 1);
    if (count <= 0)
        return 0;
    text[count] = '\0';
    const char *const found = std::strstr(text, key.data());
    return found ? std::atoll(found + key.size()) : 0;
}

// From now on no more memory than this beyond what there is: an allocation that fails is told where
// it fails, before the memory is used, and nobody has to look how much there is. Counted is the
// address space, which the system can limit at all times.
void limitMemory(qint64 megabytes)
{
    if (megabytes <= 0)
        return;
    const qint64 now = systemNumber("/proc/self/status", "VmSize:") * 1024;
    rlimit limit = {};
    ::getrlimit(RLIMIT_AS, &limit);
    limit.rlim_cur = std::min(limit.rlim_max, rlim_t(now + megabytes * 1024 * 1024));
    ::setrlimit(RLIMIT_AS, &limit);
}

// Lets the peak begin anew. Where the system does not do that, it is the peak since the start.
void forgetPeak()
{
    const Graph::Descriptor file(::open("/proc/self/clear_refs", O_WRONLY | O_CLOEXEC));
    if (file)
        Graph::writeToEnd(file.number(), "5");
}

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

DrawingAnswer drawn(const DrawingTask &task, const CommandCall &call, const QString &home)
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

bool sendBytes(Workers::Requests *requests, const QByteArray &bytes)
{
    return requests->answer({0, {{bytes.constData(), size_t(bytes.size())}}});
}

// Nothing if there are no more.
std::optional<DrawingTask> nextTask(Workers::Requests *requests)
{
    const std::optional<Workers::Message> message = requests->next();
    if (!message || message->fields.size() != 1)
        return std::nullopt;
    const std::string &bytes = message->fields.front();
    return valueOf<DrawingTask>(QByteArray::fromRawData(bytes.data(), qsizetype(bytes.size())));
}

void drawAll(Workers::Requests *requests, const CommandCall &call, const QString &home,
             bool measuresMemory)
{
    const Graph::KeptTextWidths keptWidths;
    while (const std::optional<DrawingTask> task = nextTask(requests)) {
        // The libraries of pictures complain there about those that an input holds.
        [[maybe_unused]] const int emptied = ::ftruncate(STDERR_FILENO, 0);
        if (measuresMemory)
            forgetPeak();
        QElapsedTimer timer;
        timer.start();
        DrawingAnswer answer = drawn(*task, call, home);
        answer.microseconds = timer.nsecsElapsed() / 1000;
        if (measuresMemory)
            answer.peakMemory = systemNumber("/proc/self/status", "VmHWM:");
        if (!sendBytes(requests, bytesOf(answer)))
            return;
    }
}

} // namespace

int runWorker(const CommandCall &call)
{
    if (call.arguments.size() != 3)
        return WrongUse;
    belongToParent();
    Workers::Requests requests;
    Drawing::prepareForSuddenEnd();
    Drawing::prepareToolkit();
    Drawing::startToolkit(program_invocation_name);
    Drawing::startApplication(u"orrlayout"_s);
    const QString home = Drawing::startHome(QString::fromLocal8Bit(program_invocation_name));
    const QString fault = Drawing::fontFault();
    if (sendBytes(&requests, fault.trimmed().toUtf8()) && fault.isEmpty()) {
        limitMemory(std::atoll(call.arguments[1].c_str()));
        drawAll(&requests, call, home, call.arguments[2] == "1");
    }
#ifdef __SANITIZE_ADDRESS__
    // What its fonts hold would be taken for lost.
    delete qApp;
#endif
    return AllWell;
}

} // namespace ORR::Companion
