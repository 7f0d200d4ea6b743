#include "companion/watch/file_watcher.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstring>

#include <sys/inotify.h>
#include <unistd.h>

namespace ORR::Companion {

namespace {

constexpr std::chrono::milliseconds betweenLooks{500};

// As many as the system follows.
constexpr int mostLinks = 40;

constexpr uint32_t namesChange =
    IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF;
constexpr uint32_t contentChanges = IN_MODIFY | IN_CLOSE_WRITE | IN_ATTRIB;

// The parts of a name, the first one last.
QList<QByteArray> partsOf(const QByteArray &name)
{
    QList<QByteArray> parts = name.split('/');
    parts.removeIf([](const QByteArray &part) { return part.isEmpty() || part == "."; });
    std::ranges::reverse(parts);
    return parts;
}

QByteArray startOf(const QByteArray &name)
{
    return name.startsWith('/') ? "/" : ".";
}

// Where a symbolic link leads; empty, with the system's error, for anything else.
QByteArray linkAt(const QByteArray &name)
{
    std::array<char, PATH_MAX> target;
    const ssize_t length = ::readlink(name.constData(), target.data(), target.size());
    return length > 0 ? QByteArray(target.data(), length) : QByteArray();
}

// Whether what happened to the last name leaves a file that is whole: a rename, or the end of
// writing. A folder or a link on the way is whole once it is there.
bool leavesWhole(uint32_t mask, bool isLast)
{
    const uint32_t whole = IN_CLOSE_WRITE | IN_MOVED_TO | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF
        | IN_IGNORED | (isLast ? 0 : IN_CREATE);
    return (mask & whole) != 0;
}

} // namespace

FileWatcher::FileWatcher(bool polls) : nextLook(Clock::now() + betweenLooks)
{
    if (polls)
        return;
    inotify = Graph::Descriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!inotify)
        giveUp(errno == EMFILE ? "no more watchers can be had: fs.inotify.max_user_instances"
                               : std::strerror(errno));
}

void FileWatcher::follow(qsizetype file, const QByteArray &name)
{
    names.insert(file, name);
    const QList<Step> steps = inotify ? stepsTo(name) : QList<Step>();
    if (!inotify) {
        looks.insert(file, lookAt(name));
        return;
    }
    if (steps == followed.value(file))
        return;
    // Ahead of the former ones, which may share their watches.
    for (const Step &step : steps)
        interests[step.folder].insert(step.name, {file, step.isLast});
    forget(file);
    followed.insert(file, steps);
}

void FileWatcher::watch(std::vector<pollfd> *polled, Clock::time_point *deadline) const
{
    if (inotify)
        polled->push_back({inotify.number(), POLLIN, 0});
    else
        *deadline = std::min(*deadline, nextLook);
}

QList<FileEvent> FileWatcher::take()
{
    QList<FileEvent> events;
    if (inotify)
        readEvents(&events);
    else if (Clock::now() >= nextLook)
        lookAtAll(&events);
    return events;
}

// Each folder is watched before it is looked into, so that nothing is missed that happens
// meanwhile. The way ends where nothing is.
QList<FileWatcher::Step> FileWatcher::stepsTo(const QByteArray &name)
{
    QList<Step> steps;
    QList<QByteArray> left = partsOf(name);
    QByteArray folder = startOf(name);
    int links = 0;
    while (!left.isEmpty()) {
        const QByteArray part = left.takeLast();
        const QByteArray place = folder + '/' + part;
        if (part == "..") {
            folder = place;
            continue;
        }
        if (!addStep(folder, part, left.isEmpty(), &steps))
            break;
        const QByteArray target = linkAt(place);
        if (target.isEmpty()) {
            if (errno != EINVAL)
                break;
            folder = place;
            continue;
        }
        if (++links > mostLinks)
            break;
        left += partsOf(target);
        if (target.startsWith('/'))
            folder = "/";
    }
    return steps;
}

// False if the way ends here. A folder on the way that may be passed but not be read is taken to
// stay where it is.
bool FileWatcher::addStep(const QByteArray &folder, const QByteArray &name, bool isLast,
                          QList<Step> *steps)
{
    const uint32_t mask = namesChange | (isLast ? contentChanges : 0) | IN_ONLYDIR | IN_MASK_ADD;
    const int watch = ::inotify_add_watch(inotify.number(), folder.constData(), mask);
    if (watch != -1) {
        steps->append({watch, name, isLast});
        return true;
    }
    if (errno == ENOSPC)
        giveUp("no more folders can be watched: fs.inotify.max_user_watches");
    else if (errno == ENOMEM || (errno == EACCES && isLast))
        giveUp('\'' + folder + "' can't be watched: " + std::strerror(errno));
    else
        return errno == EACCES;
    return false;
}

// Takes the former steps of a file away, and watches that nothing needs any more.
void FileWatcher::forget(qsizetype file)
{
    for (const Step &step : followed.take(file)) {
        const auto watched = interests.find(step.folder);
        if (watched == interests.end())
            continue;
        const auto found = watched->constFind(step.name, {file, step.isLast});
        if (found != watched->constEnd())
            watched->erase(found);
        if (!watched->isEmpty())
            continue;
        interests.erase(watched);
        ::inotify_rm_watch(inotify.number(), step.folder);
    }
}

void FileWatcher::giveUp(const QByteArray &fault)
{
    watchFault = fault;
    inotify = Graph::Descriptor();
    followed.clear();
    interests.clear();
    for (const auto &[file, name] : std::as_const(names).asKeyValueRange())
        looks.insert(file, lookAt(name));
}

void FileWatcher::readEvents(QList<FileEvent> *events)
{
    alignas(inotify_event) std::array<char, 65536> block;
    ssize_t count = 0;
    while ((count = ::read(inotify.number(), block.data(), block.size())) > 0) {
        for (ssize_t at = 0; at < count;) {
            const auto *const event = reinterpret_cast<const inotify_event *>(block.data() + at);
            at += ssize_t(sizeof(inotify_event)) + event->len;
            addEvents(event->wd, event->mask, event->len > 0 ? event->name : "", events);
        }
    }
}

void FileWatcher::addEvents(int folder, uint32_t mask, const QByteArray &name,
                            QList<FileEvent> *events)
{
    if ((mask & IN_Q_OVERFLOW) != 0) {
        for (const qsizetype file : std::as_const(names).keys())
            events->append({file, true});
        return;
    }
    const auto watched = interests.constFind(folder);
    if (watched == interests.constEnd())
        return;
    const QList<Interest> touched = name.isEmpty() ? watched->values() : watched->values(name);
    for (const Interest &interest : touched)
        events->append({interest.file, leavesWhole(mask, interest.isLast)});
    if ((mask & IN_IGNORED) != 0)
        interests.erase(watched);
}

void FileWatcher::lookAtAll(QList<FileEvent> *events)
{
    nextLook = Clock::now() + betweenLooks;
    for (const auto &[file, name] : std::as_const(names).asKeyValueRange()) {
        const FileLook look = lookAt(name);
        if (look == looks.value(file))
            continue;
        events->append({file, look.isThere});
        looks.insert(file, look);
    }
}

} // namespace ORR::Companion
