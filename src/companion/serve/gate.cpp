#include "companion/serve/gate.h"

#include "companion/serve/serve_limits.h"

#include <QNetworkProxy>
#include <QTimer>

#include <sys/socket.h>
#include <unistd.h>

namespace ORR::Companion {

void Visit::pass(qint64 bytes)
{
    stage = Stage::Passed;
    setReadBufferSize(bytes);
}

// A full buffer is one that the system is not asked about any more, so that nobody would see the
// visitor go.
void Visit::beginAnswer()
{
    stage = Stage::Answered;
    setReadBufferSize(ServeLimits::longestHead);
}

// A connection that is closed while something is unread would take the answer along. So the visitor
// is told that there is no more, and what it still says is dropped until it closes.
void Visit::answer(const Answer &answer)
{
    beginAnswer();
    dropUnwanted();
    connect(this, &QIODevice::bytesWritten, this, [this] { part(); });
    write(headOf(answer));
    write(answer.body);
}

void Visit::dropUnwanted()
{
    if (stage == Stage::Answered)
        skip(bytesAvailable());
}

void Visit::part()
{
    if (bytesToWrite() > 0)
        return;
    ::shutdown(int(socketDescriptor()), SHUT_WR);
    QTimer::singleShot(ServeLimits::partingTime, this, [this] { abort(); });
}

Gate::Gate(const QByteArray &token_) : token(token_)
{
    setProxy(QNetworkProxy::NoProxy);
}

void Gate::incomingConnection(qintptr descriptor)
{
    if (visits >= ServeLimits::mostConnections) {
        ::close(int(descriptor));
        return;
    }
    auto *const visit = new Visit(this);
    if (!visit->setSocketDescriptor(descriptor)) {
        delete visit;
        return;
    }
    ++visits;
    visit->setReadBufferSize(ServeLimits::longestHead);
    connect(visit, &QObject::destroyed, this, [this] { --visits; });
    // Ahead of the HTTP server, which sees what is left.
    connect(visit, &QIODevice::readyRead, this, [this, visit] { look(visit); });
    connect(visit, &QAbstractSocket::disconnected, visit, &QObject::deleteLater);
    QTimer::singleShot(ServeLimits::headTime, visit, [visit] {
        if (!visit->hasPassed())
            visit->abort();
    });
    QTimer::singleShot(ServeLimits::visitTime, visit, [visit] { visit->abort(); });
}

void Gate::look(Visit *visit)
{
    if (visit->hasPassed())
        visit->dropUnwanted();
    else
        lookAtHead(visit);
}

void Gate::lookAtHead(Visit *visit)
{
    const QByteArray bytes = visit->peek(ServeLimits::longestHead);
    const qsizetype end = bytes.indexOf("\r\n\r\n");
    if (end < 0) {
        if (bytes.size() >= ServeLimits::longestHead)
            visit->answer(faultAnswer(431, "The head of the request is longer than 16 kB."));
        return;
    }
    const qsizetype length = end + 4;
    const std::optional<RequestHead> head = requestHead(bytes.first(length));
    if (!head)
        return visit->answer(faultAnswer(400, "This is no request of HTTP/1.1."));
    if (const std::optional<Answer> refusal = refusalOf(*head, address()))
        return visit->answer(*refusal);
    visit->pass(length + lengthOfBody(*head));
    addPendingConnection(visit);
    // The HTTP server waits for bytes; those that are there have been told of already.
    QMetaObject::invokeMethod(visit, "readyRead", Qt::QueuedConnection);
}

} // namespace ORR::Companion
