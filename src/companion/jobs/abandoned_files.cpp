#include "companion/jobs/abandoned_files.h"

#include "output/files/descriptor.h"
#include "output/files/file_place.h"

#include <QByteArrayList>

#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace ORR::Companion {

namespace {

constexpr useconds_t timeToRename = 100'000; // microseconds; far more than anybody needs

struct FolderCloser
{
    void operator()(DIR *folder) const { ::closedir(folder); }
};

// The system grants a lease to readers only on what nobody writes to.
bool isWritten(int folder, const char *name)
{
    const Graph::Descriptor file(
        ::openat(folder, name, O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    return !file || ::fcntl(file.number(), F_SETLEASE, F_RDLCK) != 0;
}

QByteArrayList abandonedIn(int folder)
{
    const int opened = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, FolderCloser> listed(opened == -1 ? nullptr : ::fdopendir(opened));
    QByteArrayList names;
    if (!listed)
        return names;
    while (const dirent *const entry = ::readdir(listed.get())) {
        const QByteArrayView name(entry->d_name);
        if (name.startsWith(".orrlayout-") && name.endsWith(".tmp")
            && !isWritten(folder, entry->d_name))
            names += name.toByteArray();
    }
    return names;
}

} // namespace

void removeAbandonedFiles(const QByteArray &output)
{
    const Graph::FilePlace place = Graph::findFilePlace(output);
    if (!place.folder)
        return;
    const QByteArrayList names = abandonedIn(place.folder.number());
    if (names.isEmpty())
        return;
    ::usleep(timeToRename);
    for (const QByteArray &name : names) {
        if (!isWritten(place.folder.number(), name.constData()))
            ::unlinkat(place.folder.number(), name.constData(), 0);
    }
}

} // namespace ORR::Companion
