#pragma once

#include "companion/serve/gate.h"
#include "companion/serve/serve_session.h"

#include <QAbstractHttpServer>

#include <functional>

namespace ORR::Companion {

// The HTTP server, which reads what has passed the gate and has it answered, see routes.h.
class PageServer : public QAbstractHttpServer
{
public:
    // The gate listens already, and belongs to the server from now on. The session lives as long.
    // `afterEach` is called when something was asked for.
    PageServer(Gate *gate, ServeSession *session, std::function<void()> afterEach);

protected:
    bool handleRequest(const QHttpServerRequest &request, QTcpSocket *socket) override;
    void missingHandler(const QHttpServerRequest &request, QTcpSocket *socket) override;

private:
    Gate *gate;
    ServeSession *session;
    std::function<void()> afterEach;
};

} // namespace ORR::Companion
