#pragma once

#include "companion/watch/file_watcher.h"
#include "companion/watch/settling.h"

#include <QByteArray>

#include <optional>

namespace ORR::Companion {

// The file whose text is served: as it was found last, whether it has changed since, and how it is
// written.
class ServedFile
{
public:
    using Clock = FileWatcher::Clock;

    // `polls`: see `FileWatcher`. Nothing is read yet.
    ServedFile(const QByteArray &name, bool polls);

    const QByteArray &name() const { return fileName; }
    // As it was read or written last; nothing if it was not there, or could not be read.
    const std::optional<QByteArray> &content() const { return known; }
    // Why it could not be read, as the system words it; empty if it could.
    const QByteArray &fault() const { return readFault; }

    // Adds what is to be waited for, and sets until when at most.
    void watch(std::vector<pollfd> *polled, Clock::time_point *deadline) const;
    // Whether something has happened to it, and no more is to come.
    bool hasSettled();

    // Reads it. One that is longer than a text may be is not read; one that is being written stays
    // as it was, and settles again.
    void read();
    // Writes it as a whole: if that fails, what stood there stays. Gives why, empty for success.
    QByteArray write(const QByteArray &bytes);

private:
    QByteArray fileName;
    FileWatcher watcher;
    Settling settling;
    std::optional<QByteArray> known;
    QByteArray readFault;
};

} // namespace ORR::Companion
