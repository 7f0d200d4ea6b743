#pragma once

#include "companion/watch/whole_file.h"
#include "output/files/descriptor.h"

#include <QHash>
#include <QList>
#include <QMultiHash>

#include <chrono>
#include <vector>

#include <poll.h>

namespace ORR::Companion {

// Something happened to a file, or to what leads to it.
struct FileEvent
{
    qsizetype file; // its number
    bool isWhole; // false if more is to come: it is being written, or was taken away
};

// Tells when files may have changed, whichever way they are saved: what is watched are the folders
// on the way to each of them, by the names that matter there, so that links, renames, and files and
// folders that are made again are seen as well as writing. See inotify(7).
//
// On file systems where others write too, and where the system has no watches left, files are
// looked at twice a second instead.
class FileWatcher
{
public:
    using Clock = std::chrono::steady_clock;

    // `polls`: looks at the files from the beginning.
    explicit FileWatcher(bool polls);

    // Watches a file, which need not be there. To be called before each reading, since by then
    // another way may lead to it.
    void follow(qsizetype file, const QByteArray &name);

    // Adds what is to be waited for, and sets until when at most.
    void watch(std::vector<pollfd> *polled, Clock::time_point *deadline) const;
    // What has happened; of a file maybe more than once, maybe nothing of importance.
    QList<FileEvent> take();

    // Why files are looked at although that was not wanted, without a full stop; empty otherwise.
    const QByteArray &fault() const { return watchFault; }

private:
    // A name in a watched folder that a file depends on.
    struct Step
    {
        int folder; // the number of the watch
        QByteArray name;
        bool isLast; // it is the name of the file, or of a link to it
        bool operator==(const Step &) const = default;
    };
    struct Interest
    {
        qsizetype file;
        bool isLast;
        bool operator==(const Interest &) const = default;
    };

    QList<Step> stepsTo(const QByteArray &name);
    bool addStep(const QByteArray &folder, const QByteArray &name, bool isLast, QList<Step> *steps);
    void forget(qsizetype file);
    void giveUp(const QByteArray &fault);

    void readEvents(QList<FileEvent> *events);
    void addEvents(int folder, uint32_t mask, const QByteArray &name, QList<FileEvent> *events);
    void lookAtAll(QList<FileEvent> *events);

    Graph::Descriptor inotify; // nothing if files are looked at
    QByteArray watchFault;
    QHash<qsizetype, QByteArray> names;
    QHash<qsizetype, QList<Step>> followed;
    QHash<int, QMultiHash<QByteArray, Interest>> interests; // by watches, by names
    QHash<qsizetype, FileLook> looks; // as the files were found last
    Clock::time_point nextLook;
};

} // namespace ORR::Companion
