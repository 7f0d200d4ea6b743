#include "companion/jobs/worker.h"

#include "companion/jobs/task_answers.h"
#include "companion/jobs/value_bytes.h"
#include "device/text_widths.h"
#include "drawing/environment.h"
#include "drawing/home_directory.h"
#include "drawing/sudden_end.h"
#include "drawing/toolkit.h"
#include "output/files/descriptor.h"
#include "workers/requests.h"

#include <QCoreApplication>
#include <QElapsedTimer>

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

bool sendBytes(Workers::Requests *requests, const QByteArray &bytes)
{
    return requests->answer({0, {{bytes.constData(), size_t(bytes.size())}}});
}

// Nothing if there are no more.
std::optional<WorkerTask> nextTask(Workers::Requests *requests)
{
    const std::optional<Workers::Message> message = requests->next();
    if (!message || message->fields.size() != 1)
        return std::nullopt;
    const std::string &bytes = message->fields.front();
    return taskOf(message->kind, QByteArray::fromRawData(bytes.data(), qsizetype(bytes.size())));
}

void answerAll(Workers::Requests *requests, const CommandCall &call, const QString &home,
               bool measuresMemory)
{
    const Graph::KeptTextWidths keptWidths;
    while (const std::optional<WorkerTask> task = nextTask(requests)) {
        // The libraries of pictures complain there about those that an input holds.
        [[maybe_unused]] const int emptied = ::ftruncate(STDERR_FILENO, 0);
        if (measuresMemory)
            forgetPeak();
        QElapsedTimer timer;
        timer.start();
        DrawingAnswer answer = answerTo(*task, call, home);
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
        answerAll(&requests, call, home, call.arguments[2] == "1");
    }
#ifdef __SANITIZE_ADDRESS__
    // What its fonts hold would be taken for lost.
    delete qApp;
#endif
    return AllWell;
}

} // namespace ORR::Companion
