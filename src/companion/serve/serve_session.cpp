#include "companion/serve/serve_session.h"

#include "companion/serve/serve_limits.h"
#include "drawing/layout_table.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

WorkerSettings limits()
{
    return {.timeLimit = ServeLimits::taskTime, .memoryLimit = ServeLimits::taskMemory};
}

// The findings out of what `findingsAsJson` says of one text, each with all its members.
QJsonArray findingsOf(const QByteArray &document)
{
    QJsonArray all;
    const QJsonObject file =
        QJsonDocument::fromJson(document).object()[u"files"_s].toArray().first().toObject();
    for (const auto &found : file[u"findings"_s].toArray()) {
        QJsonObject finding = found.toObject();
        for (const QString &number : {u"line"_s, u"column"_s})
            finding.insert(number, finding[number].toInteger());
        finding.insert(u"suggestion"_s, finding[u"suggestion"_s].toString());
        all.append(finding);
    }
    return all;
}

} // namespace

ServeSession::ServeSession(const ServeRequest &request_)
    : request(request_),
      served(request.file ? &file.emplace(*request.file, request.polls) : nullptr),
      engineName(request.engine), drawing(limits()), check(limits()), downloads(1, limits())
{
    drawAgain(engineName);
}

QByteArray ServeSession::fileFault() const
{
    return !file || file->fault() == std::strerror(ENOENT) ? QByteArray() : file->fault();
}

QByteArray ServeSession::stem() const
{
    const std::filesystem::path path(request.file ? request.file->toStdString() : std::string());
    const QByteArray stem = QByteArray::fromStdString(path.stem().native());
    return stem.isEmpty() ? QByteArray("drawing") : stem;
}

void ServeSession::watch(std::vector<pollfd> *polled, Clock::time_point *deadline) const
{
    if (file)
        file->watch(polled, deadline);
    drawing.watch(polled, deadline);
    check.watch(polled, deadline);
    downloads.watch(polled, deadline);
    for (const Waiting &one : waiting)
        *deadline = std::min(*deadline, one.version == stateVersion ? one.end : Clock::now());
}

void ServeSession::advance()
{
    followFile();
    for (const FinishedTask &task : drawing.advance())
        finishPage(task);
    for (const FinishedTask &task : check.advance())
        finishCheck(task);
    for (const FinishedTask &task : downloads.advance())
        finishDownload(task);
    callBack();
}

void ServeSession::end()
{
    drawing.drop();
    check.drop();
    downloads.endAll();
}

QByteArray ServeSession::stateJson() const
{
    const QJsonObject text{
        {u"version"_s, served.version()},
        {u"editable"_s, served.isEditable()},
        {u"saved"_s, served.isSaved()},
        {u"conflict"_s, served.isConflict()},
    };
    QJsonValue page;
    if (!pages.isEmpty()) {
        const Page &last = pages.constFirst();
        page = QJsonObject{{u"version"_s, last.version},
                           {u"text"_s, last.text},
                           {u"engine"_s, QString::fromUtf8(last.engine)}};
    }
    const QJsonObject state{
        {u"version"_s, stateVersion},
        {u"file"_s, QString::fromUtf8(request.file.value_or(QByteArray()))},
        {u"engine"_s, QString::fromUtf8(engineName)},
        {u"engines"_s, QJsonArray::fromStringList(Drawing::layoutNames())},
        {u"text"_s, text},
        {u"page"_s, page},
        {u"fault"_s, QString::fromUtf8(fault)},
        {u"busy"_s, drawing.isBusy()},
        {u"findings"_s, findings},
        {u"findingsFault"_s, QString::fromUtf8(findingsFault)},
    };
    return QJsonDocument(state).toJson(QJsonDocument::Compact);
}

void ServeSession::whenChanged(qint64 version, std::function<void()> then)
{
    if (version != stateVersion)
        then();
    else
        waiting.push_back({version, Clock::now() + ServeLimits::stateTime, std::move(then)});
}

// A text with nothing in it is one that nobody has begun: there is no drawing of it, and no fault.
void ServeSession::drawAgain(const QByteArray &engine)
{
    engineName = engine;
    fault.clear();
    ++number;
    ++stateVersion;
    const QByteArray &text = served.bytes();
    if (text.trimmed().isEmpty()) {
        drawing.drop();
        check.drop();
        findings = {};
        findingsFault.clear();
        return;
    }
    begun[number] = {.text = served.version(), .engine = engine};
    drawing.give(number,
                 PageTask{.input = text,
                          .engine = engine,
                          .fallbackTitle = stem(),
                          .htmlLabels = request.htmlLabels,
                          .mostBytes = ServeLimits::largestPage});
    check.give(number, FindingsTask{.input = text, .engine = engine});
}

void ServeSession::noteChange()
{
    ++stateVersion;
}

QByteArray ServeSession::page(qint64 version) const
{
    const auto found = std::ranges::find(pages, version, &Page::version);
    return found == pages.end() ? QByteArray() : found->document;
}

void ServeSession::download(qint32 format, std::function<void(const DrawingAnswer &)> then)
{
    const DrawingTask task{
        .hasFile = false,
        .input = served.bytes(),
        .options = {.engine = engineName, .format = format, .htmlLabels = request.htmlLabels}};
    downloading[++downloadNumber] = std::move(then);
    downloads.add(downloadNumber, task);
}

void ServeSession::followFile()
{
    if (!file || !file->hasSettled())
        return;
    const qint64 before = served.version();
    served.follow();
    if (served.version() != before)
        drawAgain(engineName);
    else
        noteChange(); // it may be gone, or be there again
}

// One of an earlier text is shown, too, until that of the newest one is there; why there is none is
// of no interest.
void ServeSession::finishPage(const FinishedTask &task)
{
    Page page = begun[task.number];
    begun.erase(begun.begin(), begun.upper_bound(task.number));
    ++stateVersion;
    if (!task.answer.isDrawn) {
        if (task.number == number)
            fault = task.answer.message;
        return;
    }
    page.version = pages.isEmpty() ? 1 : pages.constFirst().version + 1;
    page.document = task.answer.drawing;
    pages.prepend(page);
    while (pages.size() > ServeLimits::mostPages)
        pages.removeLast();
}

void ServeSession::finishCheck(const FinishedTask &task)
{
    if (task.number != number)
        return;
    ++stateVersion;
    findings = task.answer.isDrawn ? findingsOf(task.answer.drawing) : QJsonArray();
    findingsFault =
        task.answer.isDrawn ? QByteArray() : "the text was not checked: " + task.answer.message;
}

void ServeSession::finishDownload(const FinishedTask &task)
{
    const auto then = std::exchange(downloading[task.number], {});
    downloading.erase(task.number);
    if (then)
        then(task.answer);
}

void ServeSession::callBack()
{
    const auto now = Clock::now();
    const auto due = std::partition(waiting.begin(), waiting.end(), [&](const Waiting &one) {
        return one.version == stateVersion && one.end > now;
    });
    const std::vector<Waiting> over(due, waiting.end());
    waiting.erase(due, waiting.end());
    for (const Waiting &one : over)
        one.then();
}

} // namespace ORR::Companion
