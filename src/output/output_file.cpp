#include "output/output_file.h"

#include "output/files/file_attributes.h"
#include "output/files/file_name.h"
#include "output/files/file_place.h"

#include <QRandomGenerator>

#include <array>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ORR::Graph {

namespace {

constexpr mode_t everybody = 0666; // less what the process takes away
constexpr mode_t owner = 0600;

// How often another run may put its file there, between two looks at it.
constexpr int mostReplacements = 1000;

// Opens what is there. Errors are those of the system.
Descriptor openTarget(const QByteArray &path)
{
    // The system guards files of others in a folder for all, such as /tmp, only from those who are
    // ready to create them.
    struct stat status = {};
    const bool isThere = ::stat(path.constData(), &status) == 0;
    const int creation = isThere ? O_CREAT : 0;
    int opened = -1;
    do {
        opened = ::open(path.constData(), O_WRONLY | O_CLOEXEC | O_NOCTTY | creation, everybody);
    } while (opened == -1 && errno == EINTR);
    return Descriptor(opened);
}

// Hidden, and nobody guesses it.
QByteArray newTemporaryName()
{
    const auto part = [] {
        return QByteArray::number(QRandomGenerator::system()->generate64(), 36);
    };
    return ".orrlayout-" + part() + part() + ".tmp";
}

// Whether this error says that the folder, or who looks after the file, takes no other file there.
// It is not a matter of room: on a full disk the file that is there is better than an empty one.
bool isRefusal(int error)
{
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY;
}

// Hands everything to the disk, or to whatever else stands behind the file.
bool syncFile(const Descriptor &file)
{
    return ::fsync(file.number()) == 0 || errno == EINVAL || errno == ENOSYS;
}

// Copies all of the one to the other.
bool copyBytes(const Descriptor &from, const Descriptor &to)
{
    std::array<char, 65536> block;
    for (;;) {
        const ssize_t count = ::read(from.number(), block.data(), block.size());
        if (count == 0)
            return true;
        if (count < 0 && !isWorthAnotherTry(from.number(), POLLIN))
            return false;
        if (count > 0 && !writeToEnd(to.number(), {block.data(), count}))
            return false;
    }
}

} // namespace

OutputFile::OutputFile(const QString &fileName)
{
    const QByteArray path = fileNameBytes(fileName);
    int error = openBeside(path);
    for (int i = 0; i < mostReplacements && error != 0 && isReplaced(path); ++i)
        error = openBeside(path);
    if (error == 0)
        return;
    removeTemporary();
    file = Descriptor();
    if (target && isRefusal(error)) {
        file = std::move(target);
        hasOldBytes = true;
    }
}

OutputFile::~OutputFile()
{
    removeTemporary();
}

// Opens what is there, and the temporary file beside it. Gives the system's error, 0 for none and
// for what is to be written at once.
int OutputFile::openBeside(const QByteArray &path)
{
    removeTemporary();
    file = Descriptor();
    target = openTarget(path);
    if (!target && errno != ENOENT)
        return errno;
    struct stat status = {};
    const bool isRegular =
        target && ::fstat(target.number(), &status) == 0 && S_ISREG(status.st_mode);
    if (target && !isRegular) {
        file = std::move(target);
        return 0;
    }
    replacesBytes = isRegular && status.st_size > 0;
    return makeTemporary(path);
}

// Whether somebody else has put another file in the place of the one that was opened, which nobody
// is to see written over any more.
bool OutputFile::isReplaced(const QByteArray &path) const
{
    struct stat opened = {};
    struct stat found = {};
    if (!target || ::fstat(target.number(), &opened) != 0)
        return false;
    return ::stat(path.constData(), &found) != 0
        ? errno == ENOENT
        : opened.st_dev != found.st_dev || opened.st_ino != found.st_ino;
}

bool OutputFile::write(QByteArrayView bytes)
{
    if (!isOpen() || failed)
        return false;
    failed = !emptyInPlace() || !writeToEnd(file.number(), bytes);
    return !failed;
}

bool OutputFile::commit()
{
    if (!isOpen() || failed)
        return false;
    if (!temporaryName.isEmpty())
        return replaceTarget();
    const bool isWhole = emptyInPlace();
    return file.close() && isWhole;
}

// Gives the system's error, 0 for none.
int OutputFile::makeTemporary(const QByteArray &path)
{
    FilePlace place = findFilePlace(path);
    if (place.error != 0)
        return place.error;
    folder = std::move(place.folder);
    name = place.name;
    temporaryName = newTemporaryName();
    // Known before it is there, so that no signal comes in between.
    unfinished = UnfinishedFile(folder.number(), temporaryName);
    file =
        Descriptor(::openat(folder.number(), temporaryName.constData(),
                            O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, target ? owner : everybody));
    if (!file) {
        const int error = errno;
        unfinished.forget();
        temporaryName.clear();
        return error;
    }
    return target ? adoptTarget() : 0;
}

// Makes the temporary file one that can stand for the target.
int OutputFile::adoptTarget()
{
    struct stat opened = {};
    struct stat found = {};
    if (::fstat(target.number(), &opened) != 0
        || ::fstatat(folder.number(), name.constData(), &found, AT_SYMLINK_NOFOLLOW) != 0)
        return errno;
    if (opened.st_dev != found.st_dev || opened.st_ino != found.st_ino)
        return EPERM;
    if (keepFileAttributes(target.number(), file.number()))
        return 0;
    return errno == ENOSPC || errno == EDQUOT ? errno : EPERM;
}

void OutputFile::removeTemporary()
{
    if (temporaryName.isEmpty())
        return;
    ::unlinkat(folder.number(), temporaryName.constData(), 0);
    unfinished.forget();
    temporaryName.clear();
}

// Only the first bytes make an end of what stands in a file that is written over.
bool OutputFile::emptyInPlace()
{
    return !std::exchange(hasOldBytes, false) || ::ftruncate(file.number(), 0) == 0;
}

bool OutputFile::replaceTarget()
{
    // Worth the wait only where there is something to lose if the machine stops.
    const bool isWhole = !replacesBytes || syncFile(file);
    if (!file.close() || !isWhole)
        return false;
    if (::renameat(folder.number(), temporaryName.constData(), folder.number(), name.constData())
        != 0)
        return target && isRefusal(errno) && writeOverTarget();
    unfinished.forget();
    temporaryName.clear();
    return true;
}

// The folder took the temporary file, but not in the place of the other.
bool OutputFile::writeOverTarget()
{
    const Descriptor temporary(
        ::openat(folder.number(), temporaryName.constData(), O_RDONLY | O_CLOEXEC));
    return temporary && ::ftruncate(target.number(), 0) == 0 && copyBytes(temporary, target)
        && target.close();
}

} // namespace ORR::Graph
