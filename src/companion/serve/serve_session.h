#pragma once

#include "companion/serve/newest_task.h"
#include "companion/serve/served_text.h"

#include <QJsonArray>
#include <QList>
#include <QString>

#include <functional>
#include <map>
#include <memory>

namespace ORR::Companion {

// What is served.
struct ServeRequest
{
    std::optional<QByteArray> file = {}; // its name
    QByteArray engine = {}; // by its name in small letters; empty for the one that a text names
    bool htmlLabels = false; // whether all labels are HTML, whatever the text says
    bool polls = false; // see `FileWatcher`
};

// The text, its drawing and its findings, as everybody sees them who has the address. Nothing is
// drawn or checked in this process: workers do it, within the limits of ServeLimits.
//
// As of a `WorkerPool`, nothing here waits: see `watch` and `advance` there. After each call that
// changes something `advance` is to be called soon.
class ServeSession
{
public:
    using Clock = WorkerPool::Clock;

    // Reads the file, whose fault is that of `fileFault`.
    explicit ServeSession(const ServeRequest &request);

    // Why the file could not be read when it was read last; empty if it could, or is not there yet.
    QByteArray fileFault() const;
    // What drawings are named by: that of the file without folder and suffix, or "drawing".
    QByteArray stem() const;

    void watch(std::vector<pollfd> *polled, Clock::time_point *deadline) const;
    void advance();
    // Ends all workers.
    void end();

    // Grows with each change of what `stateJson` tells.
    qint64 version() const { return stateVersion; }
    QByteArray stateJson() const;
    // Calls back once the version is not this one, or after some time; at once if it is not now.
    void whenChanged(qint64 version, std::function<void()> then);

    ServedText *text() { return &served; }
    // To be called when something has been done to the text, or another engine is wanted.
    void drawAgain(const QByteArray &engine);
    const QByteArray &engine() const { return engineName; }
    // Only the text's relation to its file has changed.
    void noteChange();

    // The document of a page, null if it is not kept any more.
    QByteArray page(qint64 version) const;
    // Draws the text as it is now, in a format of the table, and calls back.
    void download(qint32 format, std::function<void(const DrawingAnswer &)> then);

private:
    struct Page
    {
        qint64 version = 0; // 0 for none
        qint64 text = 0; // the version that was drawn
        QByteArray engine = {};
        QByteArray document = {};
    };

    struct Waiting
    {
        qint64 version;
        Clock::time_point end;
        std::function<void()> then;
    };

    void followFile();
    void finishPage(const FinishedTask &task);
    void finishCheck(const FinishedTask &task);
    void finishDownload(const FinishedTask &task);
    void callBack();

    ServeRequest request;
    std::optional<ServedFile> file;
    ServedText served;
    QByteArray engineName;
    qint64 stateVersion = 1;

    NewestTask drawing;
    std::map<qint64, Page> begun; // what the tasks are of, by their numbers
    qint64 number = 0; // of the newest task
    QList<Page> pages; // the newest first
    QByteArray fault;

    NewestTask check;
    QJsonArray findings;
    QByteArray findingsFault;

    WorkerPool downloads;
    std::map<qint64, std::function<void(const DrawingAnswer &)>> downloading;
    qint64 downloadNumber = 0;

    std::vector<Waiting> waiting;
};

} // namespace ORR::Companion
