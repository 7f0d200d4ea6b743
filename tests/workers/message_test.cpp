// Messages on a socket: whole, in order, whatever the pieces.
#include "workers/message.h"
#include "workers/socket_pair.h"

#include <gtest/gtest.h>

using namespace ORR::Workers;

namespace {

constexpr std::size_t large = 3'000'000; // bytes; more than any socket holds

// Everything that a message is on its way.
std::string bytesOf(const MessageView &message)
{
    const SocketPair sockets;
    EXPECT_EQ(OutgoingMessage(message).send(sockets[0], 0), OutgoingMessage::Sent);
    std::string bytes(10'000, '\0');
    const ssize_t count = ::recv(sockets[1], bytes.data(), bytes.size(), MSG_DONTWAIT);
    EXPECT_GT(count, 0);
    bytes.resize(std::size_t(std::max<ssize_t>(count, 0)));
    return bytes;
}

} // namespace

TEST(Messages, come_whole_whatever_the_pieces)
{
    const std::string zeros("\0\0", 2);
    const std::string bytes = bytesOf({7, {"first", "", zeros}}) + bytesOf({8, {}})
        + bytesOf({9, {""}}) + bytesOf({1U << 31, {"last"}});
    for (const std::size_t size : {std::size_t(1), std::size_t(3), bytes.size()}) {
        const SocketPair sockets;
        MessageReader reader;
        std::vector<Message> messages;
        for (std::size_t i = 0; i < bytes.size(); i += size) {
            const std::string piece = bytes.substr(i, size);
            ASSERT_EQ(::send(sockets[0], piece.data(), piece.size(), 0), ssize_t(piece.size()));
            EXPECT_EQ(reader.receive(sockets[1], 0), MessageReader::More);
            while (std::optional<Message> message = reader.next())
                messages.push_back(std::move(*message));
        }
        ASSERT_EQ(messages.size(), 4U) << size;
        EXPECT_EQ(messages[0].kind, 7U);
        EXPECT_EQ(messages[0].fields, std::vector<std::string>({"first", "", zeros}));
        EXPECT_EQ(messages[1].kind, 8U);
        EXPECT_EQ(messages[1].fields, std::vector<std::string>());
        EXPECT_EQ(messages[2].fields, std::vector<std::string>({""}));
        EXPECT_EQ(messages[3].kind, 1U << 31);
        EXPECT_EQ(messages[3].fields, std::vector<std::string>({"last"}));
    }
}

TEST(Messages, that_are_larger_than_the_socket_go_on_where_they_stopped)
{
    const SocketPair sockets;
    std::string bytes(large, 'x');
    bytes += "end";
    OutgoingMessage outgoing({1, {"a", bytes, "z"}});
    MessageReader reader;
    std::optional<Message> message;
    int waits = 0;
    for (auto state = OutgoingMessage::Waiting; !message;) {
        if (state == OutgoingMessage::Waiting) {
            state = outgoing.send(sockets[0], MSG_DONTWAIT);
            waits += state == OutgoingMessage::Waiting;
        }
        ASSERT_NE(state, OutgoingMessage::Failed);
        while (reader.receive(sockets[1], MSG_DONTWAIT) == MessageReader::More) { }
        message = reader.next();
    }
    EXPECT_GT(waits, 0);
    ASSERT_EQ(message->fields.size(), 3U);
    EXPECT_EQ(message->fields[0], "a");
    EXPECT_TRUE(message->fields[1] == bytes);
    EXPECT_EQ(message->fields[2], "z");
}

TEST(Messages, of_many_fields_pass)
{
    const SocketPair sockets;
    const std::vector<std::string_view> fields(5'000,
                                               "x"); // more than one call of the system takes
    EXPECT_EQ(OutgoingMessage({1, fields}).send(sockets[0], 0), OutgoingMessage::Sent);
    MessageReader reader;
    std::optional<Message> message;
    while (!(message = reader.next()))
        ASSERT_EQ(reader.receive(sockets[1], MSG_DONTWAIT), MessageReader::More);
    EXPECT_EQ(message->fields.size(), fields.size());
    EXPECT_EQ(message->fields.back(), "x");
}

TEST(Messages, wait_for_more)
{
    const SocketPair sockets;
    MessageReader reader;
    EXPECT_EQ(reader.receive(sockets[1], MSG_DONTWAIT), MessageReader::Waiting);
    EXPECT_FALSE(reader.next());
}

TEST(Messages, know_when_nobody_is_there)
{
    SocketPair sockets;
    sockets.close(0);
    MessageReader reader;
    EXPECT_EQ(reader.receive(sockets[1], 0), MessageReader::Ended);
    EXPECT_FALSE(reader.next());
    EXPECT_EQ(OutgoingMessage({1, {"x"}}).send(sockets[1], 0), OutgoingMessage::Failed);
}

TEST(Messages, that_are_cut_off_are_none)
{
    SocketPair sockets;
    const std::string bytes = bytesOf({7, {"first", "second"}});
    ASSERT_GT(::send(sockets[0], bytes.data(), bytes.size() - 1, 0), 0);
    sockets.close(0);
    MessageReader reader;
    EXPECT_EQ(reader.receive(sockets[1], 0), MessageReader::More);
    EXPECT_FALSE(reader.next());
    EXPECT_EQ(reader.receive(sockets[1], 0), MessageReader::Ended);
}
