#include "companion/serve/refusals.h"

#include "companion/serve/serve_limits.h"

#include <QRandomGenerator>

#include <algorithm>
#include <limits>

namespace ORR::Companion {

namespace {

// Another name may lead here as well: that of a page whose name server says so.
bool isOwnHost(const QByteArray &host, quint16 port)
{
    const QByteArray behind = ':' + QByteArray::number(port);
    return host == "127.0.0.1" + behind || host == "localhost" + behind;
}

// Browsers say where a request comes from; what is no browser says nothing, and needs the token.
bool isFromElsewhere(const RequestHead &head, const QByteArray &host)
{
    for (const QByteArray &origin : head.values("origin")) {
        if (origin != "http://" + host)
            return true;
    }
    for (const QByteArray &site : head.values("sec-fetch-site")) {
        if (site != "same-origin" && site != "none")
            return true;
    }
    return false;
}

bool isUpgrade(const RequestHead &head)
{
    const QList<QByteArray> connections = head.values("connection");
    return !head.values("upgrade").isEmpty()
        || std::any_of(connections.begin(), connections.end(), [](const QByteArray &connection) {
               return connection.toLower().contains("upgrade");
           });
}

bool isNumber(const QByteArray &text)
{
    return !text.isEmpty()
        && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace

QByteArray ServerAddress::text() const
{
    return "http://127.0.0.1:" + QByteArray::number(port) + path();
}

QByteArray newToken()
{
    QByteArray bytes;
    for (int i = 0; i < 4; ++i) {
        const quint32 part = QRandomGenerator::system()->generate();
        bytes.append(reinterpret_cast<const char *>(&part), sizeof part);
    }
    return bytes.toHex();
}

std::optional<Answer> refusalOf(const RequestHead &head, const ServerAddress &address)
{
    const QList<QByteArray> hosts = head.values("host");
    const QByteArray host = hosts.value(0).toLower();
    if (hosts.size() != 1 || !isOwnHost(host, address.port))
        return faultAnswer(403, "This server has another name.");
    if (isFromElsewhere(head, host))
        return faultAnswer(403, "This server answers to its own pages.");
    if (!head.target.startsWith(address.path()))
        return faultAnswer(404, "There is nothing here.");
    if (isUpgrade(head))
        return faultAnswer(400, "This server speaks HTTP/1.1.");
    if (!head.values("transfer-encoding").isEmpty())
        return faultAnswer(411, "The length of the text is missing.");
    const QList<QByteArray> lengths = head.values("content-length");
    if (lengths.size() > 1 || (lengths.size() == 1 && !isNumber(lengths[0])))
        return faultAnswer(400, "The length of the text is no number.");
    if (lengthOfBody(head) > ServeLimits::longestText)
        return faultAnswer(413, "The text is longer than 16 MB.");
    return std::nullopt;
}

qint64 lengthOfBody(const RequestHead &head)
{
    const QByteArray length = head.values("content-length").value(0);
    bool isInRange = false;
    const qint64 bytes = length.toLongLong(&isInRange);
    return length.isEmpty() || isInRange ? bytes : std::numeric_limits<qint64>::max();
}

} // namespace ORR::Companion
