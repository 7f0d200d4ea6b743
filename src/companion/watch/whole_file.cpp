#include "companion/watch/whole_file.h"

#include "driver/standard_streams.h"
#include "graph/limits.h"
#include "output/files/descriptor.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>

namespace ORR::Companion {

namespace {

bool isSame(const timespec &a, const timespec &b)
{
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

FileLook lookOf(const struct stat &status)
{
    return {.isThere = true,
            .device = status.st_dev,
            .number = status.st_ino,
            .size = status.st_size,
            .modified = status.st_mtim,
            .changed = status.st_ctim};
}

WholeFile failure(int error)
{
    return {.bytes = std::nullopt, .fault = std::strerror(error)};
}

} // namespace

bool FileLook::operator==(const FileLook &other) const
{
    return isThere == other.isThere && device == other.device && number == other.number
        && size == other.size && isSame(modified, other.modified) && isSame(changed, other.changed);
}

FileLook lookAt(const QByteArray &name)
{
    struct stat status = {};
    return ::stat(name.constData(), &status) == 0 ? lookOf(status) : FileLook();
}

WholeFile readWholeFile(const QByteArray &name)
{
    // Opening a pipe would already let go whoever writes to it.
    struct stat before = {};
    if (::stat(name.constData(), &before) != 0)
        return failure(errno);
    if (S_ISDIR(before.st_mode))
        return failure(EISDIR);
    if (!S_ISREG(before.st_mode))
        return {.bytes = std::nullopt, .fault = "it is no regular file"};
    const Graph::Descriptor file(
        ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    if (!file)
        return failure(errno);
    WholeFile read;
    read.bytes = Driver::readToEnd(file.number(), Graph::Limits::longestInput);
    if (!read.bytes)
        return failure(errno);
    read.isSteady = lookAt(name) == lookOf(before);
    return read;
}

} // namespace ORR::Companion
