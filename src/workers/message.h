#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/uio.h>

// What a worker and the process that has it say to each other, over one socket. Both are built
// together and run on one machine, so that numbers travel as they are.
//
// A message is a head and its fields, which are bytes with their length before them.
namespace ORR::Workers {

struct MessageHead
{
    std::uint32_t kind; // whatever the two agree upon
    std::uint32_t fields;
};

using FieldLength = std::uint64_t;

// A message as it is received, and one as it is sent, whose bytes stay where they are.
struct Message
{
    std::uint32_t kind = 0;
    std::vector<std::string> fields = {};
};
struct MessageView
{
    std::uint32_t kind = 0;
    std::vector<std::string_view> fields = {};
};

// A message on its way out. The bytes of the fields must live as long.
class OutgoingMessage
{
public:
    enum State { Sent, Waiting, Failed };

    explicit OutgoingMessage(const MessageView &message);
    OutgoingMessage(const OutgoingMessage &) = delete;
    OutgoingMessage &operator=(const OutgoingMessage &) = delete;

    // Sends what is left. `flags` are those of the system's `send`: with MSG_DONTWAIT it is Waiting
    // where the socket takes no more at present, without it is done when all is sent. Failed: there
    // is nobody at the other end.
    State send(int socket, int flags);

private:
    void drop(std::size_t count);

    MessageHead head;
    std::vector<FieldLength> lengths;
    std::vector<iovec> parts;
    std::size_t next = 0; // the first part that has not been sent as a whole
};

// Puts together what arrives in pieces.
class MessageReader
{
public:
    enum State { More, Waiting, Ended };

    // Receives once. `flags` are those of the system's `recv`: with MSG_DONTWAIT it is Waiting
    // where there is nothing at present. Ended: there will be no more.
    State receive(int socket, int flags);

    // The next whole message, or nothing.
    std::optional<Message> next();

private:
    bool takeNumber(void *number, std::size_t size);
    bool takeField();

    std::string bytes; // received, and not taken yet from `start` on
    std::size_t start = 0;
    std::optional<Message> message; // so far
    std::size_t field = 0; // the one that is being put together
    std::optional<FieldLength> length; // of it
};

} // namespace ORR::Workers
