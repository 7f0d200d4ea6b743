#include "companion/serve/served_file.h"

#include "companion/serve/serve_limits.h"
#include "companion/watch/whole_file.h"
#include "output/files/file_name.h"
#include "output/output.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace ORR::Companion {

ServedFile::ServedFile(const QByteArray &name, bool polls) : fileName(name), watcher(polls) { }

void ServedFile::watch(std::vector<pollfd> *polled, Clock::time_point *deadline) const
{
    watcher.watch(polled, deadline);
    *deadline = std::min(*deadline, settling.end().value_or(*deadline));
}

bool ServedFile::hasSettled()
{
    const auto now = Clock::now();
    for (const FileEvent &event : watcher.take())
        settling.note(event.isWhole, now);
    return settling.takeIfOver(now);
}

void ServedFile::read()
{
    watcher.follow(0, fileName);
    if (lookAt(fileName).size > ServeLimits::longestText) {
        known.reset();
        readFault = "it is longer than 16 MB";
        return;
    }
    const WholeFile file = readWholeFile(fileName);
    if (!file.isSteady) {
        settling.beginAgain(Clock::now());
        return;
    }
    known = file.bytes;
    readFault = QByteArray::fromStdString(file.fault);
}

QByteArray ServedFile::write(const QByteArray &bytes)
{
    errno = 0;
    if (!Graph::writeOutput(Graph::fileNameText(fileName), bytes))
        return errno == 0 ? QByteArray("not all of it arrived") : QByteArray(std::strerror(errno));
    known = bytes;
    readFault.clear();
    return {};
}

} // namespace ORR::Companion
