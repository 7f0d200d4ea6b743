#include "drawing/held_standard_error.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace ORR::Drawing {

int HeldStandardError::saved = -1;
int HeldStandardError::memory = -1;

HeldStandardError::HeldStandardError()
{
    saved = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    memory = ::memfd_create("standard error", MFD_CLOEXEC);
    if (memory == -1)
        memory = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    if (saved != -1 && memory != -1)
        ::dup2(memory, STDERR_FILENO);
}

HeldStandardError::~HeldStandardError()
{
    if (saved != -1) {
        ::dup2(saved, STDERR_FILENO);
        ::close(saved);
    }
    if (memory != -1)
        ::close(memory);
    saved = -1;
    memory = -1;
}

QByteArray HeldStandardError::text() const
{
    QByteArray bytes(memory == -1 ? 0 : ::lseek(memory, 0, SEEK_END), Qt::Uninitialized);
    bytes.truncate(
        static_cast<qsizetype>(copyText(bytes.data(), static_cast<size_t>(bytes.size()))));
    return bytes;
}

size_t HeldStandardError::copyText(char *buffer, size_t room)
{
    const ssize_t count = memory == -1 ? 0 : ::pread(memory, buffer, room, 0);
    return count > 0 ? static_cast<size_t>(count) : 0;
}

int HeldStandardError::messages()
{
    return saved == -1 ? STDERR_FILENO : saved;
}

} // namespace ORR::Drawing
