#include "workers/message.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstring>
#include <utility>

#include <sys/socket.h>

namespace ORR::Workers {

namespace {

template <typename Byte>
iovec partOf(Byte *first, std::size_t count)
{
    return {const_cast<void *>(static_cast<const void *>(first)), count};
}

bool isForLater(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK;
}

} // namespace

OutgoingMessage::OutgoingMessage(const MessageView &message)
    : head{message.kind, static_cast<std::uint32_t>(message.fields.size())}
{
    lengths.reserve(message.fields.size());
    parts.reserve(1 + 2 * message.fields.size());
    parts.push_back(partOf(&head, sizeof head));
    for (const std::string_view bytes : message.fields) {
        lengths.push_back(bytes.size());
        parts.push_back(partOf(&lengths.back(), sizeof(FieldLength)));
        parts.push_back(partOf(bytes.data(), bytes.size()));
    }
}

OutgoingMessage::State OutgoingMessage::send(int socket, int flags)
{
    while (next < parts.size()) {
        msghdr left = {};
        left.msg_iov = &parts[next];
        left.msg_iovlen = std::min<std::size_t>(parts.size() - next, IOV_MAX);
        const ssize_t sent = ::sendmsg(socket, &left, flags | MSG_NOSIGNAL);
        if (sent >= 0)
            drop(static_cast<std::size_t>(sent));
        else if (isForLater(errno))
            return Waiting;
        else if (errno != EINTR)
            return Failed;
    }
    return Sent;
}

void OutgoingMessage::drop(std::size_t count)
{
    for (; next < parts.size() && count >= parts[next].iov_len; ++next)
        count -= parts[next].iov_len;
    if (count == 0)
        return;
    iovec &part = parts[next];
    part = partOf(static_cast<const char *>(part.iov_base) + count, part.iov_len - count);
}

MessageReader::State MessageReader::receive(int socket, int flags)
{
    std::array<char, 65536> block; // NOLINT(*-member-init): what is received is all that is read
    ssize_t count = 0;
    do {
        count = ::recv(socket, block.data(), block.size(), flags);
    } while (count == -1 && errno == EINTR);
    if (count == -1 && isForLater(errno))
        return Waiting;
    if (count <= 0)
        return Ended;
    bytes.append(block.data(), static_cast<std::size_t>(count));
    return More;
}

std::optional<Message> MessageReader::next()
{
    if (!message) {
        MessageHead head = {};
        if (!takeNumber(&head, sizeof head))
            return std::nullopt;
        message = {head.kind, std::vector<std::string>(head.fields)};
        field = 0;
    }
    while (field < message->fields.size() && takeField())
        ++field;
    if (start == bytes.size()) {
        bytes.clear();
        start = 0;
    }
    if (field < message->fields.size())
        return std::nullopt;
    return std::exchange(message, std::nullopt);
}

bool MessageReader::takeNumber(void *number, std::size_t size)
{
    if (bytes.size() - start < size)
        return false;
    std::memcpy(number, bytes.data() + start, size);
    start += size;
    return true;
}

// Takes what there is of the present field. True once it is whole.
bool MessageReader::takeField()
{
    std::string &taken = message->fields[field];
    if (!length) {
        FieldLength announced = 0;
        if (!takeNumber(&announced, sizeof announced))
            return false;
        length = announced;
        taken.reserve(announced);
    }
    const std::size_t count = std::min<std::size_t>(*length - taken.size(), bytes.size() - start);
    taken.append(bytes, start, count);
    start += count;
    if (taken.size() < *length)
        return false;
    length.reset();
    return true;
}

} // namespace ORR::Workers
