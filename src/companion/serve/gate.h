#pragma once

#include "companion/serve/refusals.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace ORR::Companion {

// A connection, for one request and its answer.
class Visit : public QTcpSocket
{
public:
    using QTcpSocket::QTcpSocket;

    // Whether its request has passed the gate, which looks at it until then.
    bool hasPassed() const { return stage != Stage::AtGate; }
    // The head has been looked at; so many bytes of the request are let in and no more.
    void pass(qint64 bytes);
    // The request is read. What comes behind it is dropped.
    void beginAnswer();
    // Sends the answer and ends the connection. What comes meanwhile is dropped.
    void answer(const Answer &answer);
    // Drops what has come, if nobody is to read it.
    void dropUnwanted();

private:
    enum class Stage { AtGate, Passed, Answered };

    void part();

    Stage stage = Stage::AtGate;
};

// What listens. It looks at the head of each request before the HTTP server does, which would hold
// any number of connections and of bytes: a visitor that is refused, or says too much or nothing,
// costs a few kilobytes and no longer than ServeLimits says.
class Gate : public QTcpServer
{
public:
    explicit Gate(const QByteArray &token);

    // The port once it listens.
    ServerAddress address() const { return {serverPort(), token}; }

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    void look(Visit *visit);
    void lookAtHead(Visit *visit);

    QByteArray token;
    int visits = 0;
};

} // namespace ORR::Companion
