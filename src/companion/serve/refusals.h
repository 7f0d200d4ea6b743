#pragma once

#include "companion/serve/answer.h"
#include "companion/serve/request_head.h"

namespace ORR::Companion {

// Where the server is found: what only its own pages know.
struct ServerAddress
{
    quint16 port = 0;
    QByteArray token = {}; // hexadecimal digits

    // The beginning of every path: "/TOKEN/".
    QByteArray path() const { return '/' + token + '/'; }
    // All of it, as users open it.
    QByteArray text() const;
};

// A token that nobody guesses: 32 digits from the system's random source.
QByteArray newToken();

// The answer to a request that is refused for what its head says: that it comes by another name of
// the host, from a page of somebody else, without the token, or with a body that is too long or of
// a length that nobody knows. Nothing if it may pass.
std::optional<Answer> refusalOf(const RequestHead &head, const ServerAddress &address);

// The bytes of the body of a request that may pass.
qint64 lengthOfBody(const RequestHead &head);

} // namespace ORR::Companion
