#include "output/files/descriptor.h"

#include <cerrno>

#include <poll.h>
#include <unistd.h>

namespace ORR::Graph {

bool Descriptor::close()
{
    const int closing = std::exchange(descriptor, -1);
    return closing == -1 || ::close(closing) == 0;
}

bool isWorthAnotherTry(int descriptor, short event)
{
    if (errno == EINTR)
        return true;
    if (errno != EAGAIN && errno != EWOULDBLOCK)
        return false;
    pollfd waiting{descriptor, event, 0};
    return ::poll(&waiting, 1, -1) != -1 || errno == EINTR;
}

bool writeToEnd(int descriptor, QByteArrayView bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(descriptor, bytes.data() + written,
                                      static_cast<size_t>(bytes.size() - written));
        if (count >= 0)
            written += count;
        else if (!isWorthAnotherTry(descriptor, POLLOUT))
            return false;
    }
    return true;
}

} // namespace ORR::Graph
