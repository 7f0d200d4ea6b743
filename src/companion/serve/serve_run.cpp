#include "companion/serve/serve_run.h"

#include "companion/command/streams.h"
#include "companion/jobs/ending_signals.h"
#include "companion/serve/loop_turns.h"
#include "companion/serve/page_server.h"
#include "companion/serve/serve_limits.h"
#include "drawing/toolkit.h"

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <memory>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// Behind one that is taken there may be another; one that was asked for is that or none.
bool listens(Gate *gate, const std::optional<quint16> &asked)
{
    if (asked)
        return gate->listen(QHostAddress::LocalHost, *asked);
    for (quint16 i = 0; i <= ServeLimits::furtherPorts; ++i) {
        if (gate->listen(QHostAddress::LocalHost, quint16(ServeLimits::usualPort + i)))
            return true;
    }
    return gate->listen(QHostAddress::LocalHost);
}

std::string listeningFault(const Gate &gate, const std::optional<quint16> &asked)
{
    const std::string port = "port " + std::to_string(asked.value_or(0));
    if (gate.serverError() == QAbstractSocket::AddressInUseError)
        return port + " is taken; --port 0 takes any that is free";
    return port + " can't be had: " + gate.errorString().toStdString();
}

// By a process that is nobody's, with no shell in between, in the surroundings that a browser
// needs: the toolkit has none of them.
void openBrowser(const CommandCall &call, const QByteArray &address,
                 const QProcessEnvironment &surroundings)
{
    QProcess opener;
    opener.setProgram(QStandardPaths::findExecutable(u"xdg-open"_s));
    opener.setArguments({QString::fromLatin1(address)});
    opener.setProcessEnvironment(surroundings);
    opener.setStandardInputFile(QProcess::nullDevice());
    opener.setStandardOutputFile(QProcess::nullDevice());
    opener.setStandardErrorFile(QProcess::nullDevice());
    if (opener.program().isEmpty() || !opener.startDetached())
        tell(call.name + ": there is no xdg-open to open a browser with\n");
}

// Until a signal comes.
void answerAll(Gate *gate, ServeSession *session)
{
    const EndingSignals signals;
    const Graph::Descriptor coming = signals.descriptor();
    const auto watch = [&](std::vector<pollfd> *polled, LoopTurns::Clock::time_point *deadline) {
        session->watch(polled, deadline);
        polled->push_back({coming.number(), POLLIN, 0});
    };
    const auto turn = [&] {
        std::vector<pollfd> none;
        signals.poll(&none, 0);
        if (EndingSignals::caught())
            QCoreApplication::quit();
        else
            session->advance();
    };
    LoopTurns turns(watch, turn);
    const PageServer server(gate, session, [&] { turns.wake(); });
    QCoreApplication::exec();
    session->end();
}

} // namespace

int serve(const CommandCall &call, const ServeUse &use)
{
    const QProcessEnvironment surroundings = QProcessEnvironment::systemEnvironment();
    Drawing::prepareToolkit();
    int count = 1;
    char name[] = "orr";
    char *arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);

    ServeSession session(use.request);
    if (const QByteArray fault = session.fileFault(); !fault.isEmpty()) {
        tell(call.name + ": '" + use.request.file->toStdString()
             + "' can't be read: " + fault.toStdString() + '\n');
        return WrongUse;
    }
    auto gate = std::make_unique<Gate>(newToken());
    if (!listens(gate.get(), use.port)) {
        tell(call.name + ": " + listeningFault(*gate, use.port) + '\n');
        return WrongUse;
    }
    const QByteArray address = gate->address().text();
    if (!print(call, address + '\n'))
        return WrongUse;
    if (use.opens)
        openBrowser(call, address, surroundings);
    answerAll(gate.release(), &session);
    endBySignal(EndingSignals::caught());
}

} // namespace ORR::Companion
