#pragma once

#include <QByteArray>
#include <QList>

#include <optional>
#include <utility>

namespace ORR::Companion {

// The head of a request as it stands in HTTP/1.1 (RFC 9112).
struct RequestHead
{
    QByteArray method = {};
    QByteArray target = {}; // begins with a slash; printable ASCII without blanks
    QList<std::pair<QByteArray, QByteArray>> fields = {}; // names in small letters

    // All values of a field, in their order.
    QList<QByteArray> values(QByteArrayView name) const;
};

// The bytes of a head from its first to the end of the empty line, or nothing if they are none. It
// is stricter than readers are: nobody is to see another request in them.
std::optional<RequestHead> requestHead(const QByteArray &bytes);

} // namespace ORR::Companion
