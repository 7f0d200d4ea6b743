#pragma once

#include "companion/serve/answer.h"
#include "companion/serve/serve_session.h"

#include <QUrlQuery>

#include <functional>

namespace ORR::Companion {

// What is asked for at a path.
struct RouteCall
{
    QByteArray method = {}; // "GET" or "POST"; what else there is, is answered alike
    QByteArray path = {}; // behind the token and its slash, as it stands in the address
    QUrlQuery query = {};
    QByteArray body = {};
};

// Takes the answer, at once or later, and once.
using Reply = std::function<void(const Answer &)>;

// Does what is asked for, and answers it.
void answerCall(ServeSession *session, const RouteCall &call, const Reply &reply);

// How a browser is told to keep a drawing under the name: a field of HTTP (RFC 6266, RFC 8187),
// whatever stands in the name.
QByteArray dispositionOf(const QByteArray &name);

} // namespace ORR::Companion
