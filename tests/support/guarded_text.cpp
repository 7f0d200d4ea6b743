#include "support/guarded_text.h"

#include <algorithm>
#include <new>

#include <sys/mman.h>
#include <unistd.h>

namespace {

qsizetype pageSize()
{
    static const qsizetype size = ::sysconf(_SC_PAGESIZE);
    return size;
}

} // namespace

GuardedText::GuardedText(const QByteArray &text)
    : room((text.size() + pageSize()) / pageSize() * pageSize()), size(text.size())
{
    void *mapped = ::mmap(nullptr, static_cast<size_t>(room + pageSize()), PROT_READ | PROT_WRITE,
                          MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED)
        throw std::bad_alloc();
    memory = static_cast<char *>(mapped);
    if (::mprotect(memory + room, static_cast<size_t>(pageSize()), PROT_NONE) != 0)
        throw std::bad_alloc();
    std::copy_n(text.constData(), size + 1, memory + room - size - 1);
}

GuardedText::~GuardedText()
{
    ::munmap(memory, static_cast<size_t>(room + pageSize()));
}

QByteArray GuardedText::bytes() const
{
    return QByteArray::fromRawData(memory + room - size - 1, size);
}
