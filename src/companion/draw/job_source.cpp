#include "companion/draw/job_source.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ORR::Companion {

JobSource::JobSource(const std::string &name) : isStandardInput(name == "-")
{
    if (isStandardInput)
        return;
    file = Graph::Descriptor(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
    if (!file)
        openFault = std::strerror(errno);
}

int JobSource::descriptor() const
{
    return isStandardInput ? STDIN_FILENO : file.number();
}

bool JobSource::isRegularFile() const
{
    struct stat status = {};
    return ::fstat(descriptor(), &status) == 0 && S_ISREG(status.st_mode);
}

void JobSource::read()
{
    std::array<char, 65536> block;
    const ssize_t read = ::read(descriptor(), block.data(), block.size());
    if (read == -1 && (errno == EINTR || errno == EAGAIN || errno == EWOULDBLOCK))
        return;
    if (read > 0) {
        bytes.append(block.data(), read);
        cutLines();
        return;
    }
    hasEnded = true;
    if (!bytes.isEmpty() || isTooLong)
        addLine(bytes);
    bytes.clear();
}

JobSource::Line JobSource::next()
{
    Line line = lines.front();
    lines.pop_front();
    return line;
}

void JobSource::cutLines()
{
    qsizetype start = 0;
    for (;;) {
        const qsizetype end = bytes.indexOf('\n', start);
        if (end < 0)
            break;
        addLine(bytes.sliced(start, end - start));
        start = end + 1;
    }
    bytes.remove(0, start);
    if (bytes.size() > longestLine) {
        isTooLong = true;
        bytes.clear();
    }
}

// A line of nothing but blanks says nothing.
void JobSource::addLine(const QByteArray &text)
{
    ++count;
    if (isTooLong || text.size() > longestLine)
        lines.push_back({count, {}});
    else if (!text.trimmed().isEmpty())
        lines.push_back({count, text});
    isTooLong = false;
}

} // namespace ORR::Companion
