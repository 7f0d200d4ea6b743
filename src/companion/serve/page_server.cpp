#include "companion/serve/page_server.h"

#include "companion/serve/routes.h"

#include <QHttpServerRequest>
#include <QPointer>

namespace ORR::Companion {

namespace {

QByteArray nameOf(QHttpServerRequest::Method method)
{
    if (method == QHttpServerRequest::Method::Get)
        return "GET";
    return method == QHttpServerRequest::Method::Post ? "POST" : "";
}

} // namespace

PageServer::PageServer(Gate *gate_, ServeSession *session_, std::function<void()> afterEach_)
    : gate(gate_), session(session_), afterEach(std::move(afterEach_))
{
    bind(gate);
}

// A connection is for one request: what comes behind it is not read as another one. Whoever asked
// may be gone when the answer is there.
bool PageServer::handleRequest(const QHttpServerRequest &request, QTcpSocket *socket)
{
    auto *const visit = static_cast<Visit *>(socket); // the gate makes no others
    disconnect(visit, &QIODevice::readyRead, this, nullptr);
    visit->beginAnswer();
    const QByteArray path = request.url().path(QUrl::FullyEncoded).toUtf8();
    const RouteCall call{.method = nameOf(request.method()),
                         .path = path.mid(gate->address().path().size()),
                         .query = request.query(),
                         .body = request.body()};
    const Reply reply = [guarded = QPointer<Visit>(visit)](const Answer &answer) {
        if (guarded)
            guarded->answer(answer);
    };
    if (path.startsWith(gate->address().path()))
        answerCall(session, call, reply);
    else
        reply(faultAnswer(404, "There is nothing here."));
    afterEach();
    return true;
}

// What would have to be another protocol: the gate lets none of it in.
void PageServer::missingHandler(const QHttpServerRequest & /*request*/, QTcpSocket *socket)
{
    socket->abort();
}

} // namespace ORR::Companion
