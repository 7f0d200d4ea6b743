#include "companion/import/reading/import_source.h"

#include "graph/limits.h"

#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ORR::Companion {

namespace {

constexpr qsizetype pieceSize = 1 << 18;
constexpr qsizetype beginningSize = 1 << 16;

// Longer than any line or file that is read as a whole is meant to be.
constexpr qsizetype longestPiece = Graph::Limits::longestInput;

} // namespace

ImportSource::ImportSource(const std::string &name) : sourceName(name)
{
    if (name == "-") {
        descriptor = STDIN_FILENO;
        return;
    }
    file = Graph::Descriptor(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
    descriptor = file.number();
    if (!file)
        readFault = std::strerror(errno);
    struct stat status = {};
    isDirectory = file && ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

ImportSource::ImportSource(const std::string &name, const QByteArray &bytes)
    : sourceName(name), buffer(bytes)
{
}

// False at the end.
bool ImportSource::readMore()
{
    if (descriptor == -1)
        return false;
    if (start > 0) {
        buffer.remove(0, start);
        start = 0;
    }
    if (buffer.size() > longestPiece) {
        readFault = "it is too long";
        descriptor = -1;
        return false;
    }
    const qsizetype held = buffer.size();
    buffer.resize(held + pieceSize);
    ssize_t count = -1;
    do
        count = ::read(descriptor, buffer.data() + held, size_t(pieceSize));
    while (count < 0 && Graph::isWorthAnotherTry(descriptor, POLLIN));
    if (count < 0)
        readFault = std::strerror(errno);
    if (count <= 0)
        descriptor = -1;
    buffer.resize(held + std::max<ssize_t>(count, 0));
    return count > 0;
}

void ImportSource::skipMark()
{
    constexpr QByteArrayView mark = "\xef\xbb\xbf";
    if (std::exchange(hasBegun, true))
        return;
    while (buffer.size() < mark.size() && readMore()) { }
    if (buffer.startsWith(mark))
        start = mark.size();
}

QByteArrayView ImportSource::beginning()
{
    skipMark();
    while (buffer.size() - start < beginningSize && readMore()) { }
    const QByteArrayView left = QByteArrayView(buffer).sliced(start);
    return left.first(std::min(left.size(), beginningSize));
}

bool ImportSource::nextLine(QByteArrayView *line)
{
    skipMark();
    qsizetype searched = start;
    qsizetype end = -1;
    while ((end = buffer.indexOf(separator, searched)) < 0) {
        const qsizetype held = buffer.size() - start;
        if (!readMore()) {
            if (held == 0)
                return false;
            end = buffer.size();
            break;
        }
        searched = held;
    }
    *line = QByteArrayView(buffer).sliced(start, end - start);
    if (separator == '\n' && line->endsWith('\r'))
        line->chop(1);
    start = std::min(end + 1, buffer.size());
    ++linesGiven;
    return true;
}

QByteArray ImportSource::rest()
{
    skipMark();
    while (readMore()) { }
    QByteArray all = std::exchange(buffer, {});
    all.remove(0, std::exchange(start, 0));
    return all;
}

} // namespace ORR::Companion
