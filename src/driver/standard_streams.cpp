#include "driver/standard_streams.h"

#include "output/files/descriptor.h"

#include <algorithm>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ORR::Driver {

namespace {

constexpr qsizetype firstChunk = 65536;

// True if the descriptor is open. A closed one is taken for the null device: the lowest free number
// is the one that the next file gets, so the three are to be asked in their order.
bool isOpenOrReserved(int descriptor)
{
    if (::fcntl(descriptor, F_GETFD) != -1 || errno != EBADF)
        return true;
    ::open("/dev/null", O_RDWR);
    return false;
}

// The room to start with: a byte more than a regular file has, so that one read call takes it and
// the next one meets the end.
qsizetype expectedSize(int descriptor, qsizetype limit)
{
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return firstChunk;
    return std::clamp<qint64>(status.st_size + 1, firstChunk, limit + 1);
}

} // namespace

StandardStreams reserveStandardStreams()
{
    StandardStreams streams;
    streams.input = isOpenOrReserved(STDIN_FILENO);
    streams.output = isOpenOrReserved(STDOUT_FILENO);
    streams.error = isOpenOrReserved(STDERR_FILENO);
    return streams;
}

void ignoreSignalsOfWriting()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

std::optional<QByteArray> readToEnd(int descriptor, qsizetype limit)
{
    QByteArray bytes(expectedSize(descriptor, limit), Qt::Uninitialized);
    qsizetype filled = 0;
    while (filled <= limit) {
        if (filled == bytes.size())
            bytes.resize(std::min(2 * filled, limit + 1));
        const ssize_t count =
            ::read(descriptor, bytes.data() + filled, static_cast<size_t>(bytes.size() - filled));
        if (count == 0)
            break;
        if (count > 0)
            filled += count;
        else if (!Graph::isWorthAnotherTry(descriptor, POLLIN))
            return std::nullopt;
    }
    bytes.truncate(filled);
    return bytes;
}

bool writeToEnd(int descriptor, const QByteArray &bytes)
{
    if (!Graph::writeToEnd(descriptor, bytes))
        return false;
    // Some file systems tell that the disk is full only when a descriptor is closed; closing a
    // second one asks them without giving up the first.
    const int second = ::dup(descriptor);
    return second == -1 || ::close(second) == 0;
}

} // namespace ORR::Driver
