#pragma once

#include "orrlayout/orrlayout.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// What the library and its workers say to each other, over one socket: the library asks, the worker
// answers. Both are built together and run on one machine, so that numbers travel as they are. The
// worker speaks first: it greets with its version once it can draw.
//
// A message is a head and its fields, which are bytes with their length before them.
namespace ORR::Api {

enum class Request : std::uint32_t { Draw, Check };

// The fields of a request, in this order.
struct RequestField
{
    enum { Input, Engine, Format, Home, HtmlLabels, Count };
};

// The fields of an answer: of a drawing its bytes, of a failure its message, of a check these for
// each finding.
struct FindingField
{
    enum { Rule, Sentence, Suggestion, Numbers, Count };
};

// As bytes in their field.
struct FindingNumbers
{
    std::int64_t severity;
    std::int64_t line;
    std::int64_t column;
    std::int64_t endLine;
    std::int64_t endColumn;
    std::int64_t more;
};

struct MessageHead
{
    std::uint32_t kind; // a Request, or an orrlayout_status
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

// Sends, or receives, a message by a stream's `write(const void *, size_t)` and
// `read(void *, size_t)`, which are true if all bytes passed. False otherwise.
template <typename Stream>
bool sendMessage(Stream &stream, const MessageView &message)
{
    const MessageHead head{message.kind, static_cast<std::uint32_t>(message.fields.size())};
    if (!stream.write(&head, sizeof head))
        return false;
    for (const std::string_view field : message.fields) {
        const FieldLength length = field.size();
        if (!stream.write(&length, sizeof length) || !stream.write(field.data(), field.size()))
            return false;
    }
    return true;
}

template <typename Stream>
bool receiveMessage(Stream &stream, Message *message)
{
    MessageHead head{};
    if (!stream.read(&head, sizeof head))
        return false;
    message->kind = head.kind;
    message->fields.assign(head.fields, {});
    for (std::string &field : message->fields) {
        FieldLength length = 0;
        if (!stream.read(&length, sizeof length))
            return false;
        field.resize(length);
        if (!stream.read(field.data(), field.size()))
            return false;
    }
    return true;
}

} // namespace ORR::Api
