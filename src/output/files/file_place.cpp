#include "output/files/file_place.h"

#include <array>
#include <cerrno>
#include <climits>

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace ORR::Graph {

namespace {

constexpr int mostLinks = 40; // as many as the system follows

bool isOfProcesses(const Descriptor &folder)
{
    struct statfs status = {};
    return ::fstatfs(folder.number(), &status) == 0 && status.f_type == PROC_SUPER_MAGIC;
}

FilePlace noPlace(int error)
{
    return {{}, {}, error};
}

} // namespace

FilePlace findFilePlace(const QByteArray &path)
{
    QByteArray rest = path;
    Descriptor linkFolder; // that of the last link; none at first
    for (int links = 0; links < mostLinks; ++links) {
        const qsizetype nameStart = rest.lastIndexOf('/') + 1;
        const QByteArray name = rest.sliced(nameStart);
        if (name.isEmpty())
            return noPlace(ENOENT);
        const QByteArray folderName = nameStart == 0 ? QByteArray(".") : rest.first(nameStart);
        const int start = linkFolder ? linkFolder.number() : AT_FDCWD;
        Descriptor folder(
            ::openat(start, folderName.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!folder)
            return noPlace(errno);
        if (isOfProcesses(folder))
            return noPlace(EPERM);
        std::array<char, PATH_MAX> link;
        const ssize_t length =
            ::readlinkat(folder.number(), name.constData(), link.data(), link.size());
        if (length < 0 && errno != EINVAL && errno != ENOENT)
            return noPlace(errno);
        if (length < 0)
            return {std::move(folder), name, 0};
        rest = QByteArray(link.data(), length);
        linkFolder = std::move(folder);
    }
    return noPlace(ELOOP);
}

} // namespace ORR::Graph
