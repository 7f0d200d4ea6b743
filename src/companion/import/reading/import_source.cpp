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
    : sourceName(name), buffer(bytes), filled(bytes.size())
{
}

// For a piece behind what is left, which goes to the front: the memory stays the same unless a line
// is longer than it.
void ImportSource::makeRoom()
{
    const qsizetype left = filled - start;
    if (start > 0)
        std::memmove(buffer.data(), buffer.constData() + start, size_t(left));
    start = 0;
    filled = left;
    if (buffer.size() < left + pieceSize)
        buffer.resize(std::max(left + pieceSize, left * 2));
}

// False at the end.
bool ImportSource::readMore()
{
    if (descriptor == -1)
        return false;
    if (filled - start > longestPiece) {
        readFault = "it is too long";
        descriptor = -1;
        return false;
    }
    makeRoom();
    ssize_t count = -1;
    do
        count = ::read(descriptor, buffer.data() + filled, size_t(pieceSize));
    while (count < 0 && Graph::isWorthAnotherTry(descriptor, POLLIN));
    if (count < 0)
        readFault = std::strerror(errno);
    if (count <= 0)
        descriptor = -1;
    filled += std::max<ssize_t>(count, 0);
    return count > 0;
}

void ImportSource::skipMark()
{
    constexpr QByteArrayView mark = "\xef\xbb\xbf";
    if (std::exchange(hasBegun, true))
        return;
    while (filled - start < mark.size() && readMore()) { }
    if (unread().startsWith(mark))
        start += mark.size();
}

QByteArrayView ImportSource::beginning()
{
    skipMark();
    while (filled - start < beginningSize && readMore()) { }
    return unread().first(std::min(filled - start, beginningSize));
}

bool ImportSource::nextLine(QByteArrayView *line)
{
    skipMark();
    qsizetype searched = 0;
    const char *found = nullptr;
    while (!(found = static_cast<const char *>(std::memchr(unread().data() + searched, separator,
                                                           size_t(filled - start - searched))))) {
        searched = filled - start;
        if (!readMore()) {
            if (searched == 0)
                return false;
            break;
        }
    }
    const qsizetype length = found ? found - unread().data() : searched;
    *line = unread().first(length);
    if (separator == '\n' && line->endsWith('\r'))
        line->chop(1);
    start = std::min(start + length + 1, filled);
    ++linesGiven;
    return true;
}

QByteArray ImportSource::rest()
{
    skipMark();
    while (readMore()) { }
    QByteArray all = std::exchange(buffer, {});
    all.truncate(std::exchange(filled, 0));
    all.remove(0, std::exchange(start, 0));
    return all;
}

} // namespace ORR::Companion
