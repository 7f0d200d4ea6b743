#include "companion/serve_run.h"

#include "support/golden.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>

#include <array>
#include <csignal>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int longest = 30'000; // milliseconds

HttpAnswer answerIn(const QByteArray &bytes)
{
    const qsizetype end = bytes.indexOf("\r\n\r\n");
    if (end < 0 || !bytes.startsWith("HTTP/1.1 "))
        return {};
    return {bytes.mid(9, 3).toInt(), bytes.first(end + 2), bytes.sliced(end + 4)};
}

} // namespace

QByteArray HttpAnswer::field(const QByteArray &name) const
{
    const qsizetype start = head.indexOf("\r\n" + name + ": ");
    if (start < 0)
        return {};
    const qsizetype value = start + name.size() + 4;
    return head.sliced(value, head.indexOf("\r\n", value) - value);
}

QJsonObject HttpAnswer::json() const
{
    return QJsonDocument::fromJson(body).object();
}

void ServeTest::SetUp()
{
    // A shell lets what it runs in the background ignore some of them, and so would the program.
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        std::signal(signal, SIG_DFL);
    std::signal(SIGPIPE, SIG_IGN);
}

void ServeTest::TearDown()
{
    if (program.state() != QProcess::NotRunning)
        end(SIGTERM);
    EXPECT_EQ(program.readAllStandardError(), "");
}

void ServeTest::start(const QStringList &arguments, const QString &shell)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"FONTCONFIG_FILE"_s, QStringLiteral(ORR_TEST_FONTS));
    program.setProcessEnvironment(environment);
    program.setWorkingDirectory(path(u"."_s));
    const QStringList call = QStringList{u"serve"_s} + arguments;
    if (shell.isEmpty())
        program.start(QStringLiteral(ORR_PROGRAM), call);
    else
        program.start(u"sh"_s, QStringList{u"-c"_s, shell, QStringLiteral(ORR_PROGRAM)} + call);
    while (!program.canReadLine())
        ASSERT_TRUE(program.waitForReadyRead(longest))
            << program.readAllStandardError().toStdString();
    const QByteArray line = program.readLine();
    const QByteArray before = "http://127.0.0.1:";
    ASSERT_TRUE(line.startsWith(before) && line.endsWith("/\n")) << line.toStdString();
    const QByteArrayList parts = line.sliced(before.size()).split('/');
    ASSERT_EQ(parts.size(), 3);
    serverPort = parts[0].toUShort();
    serverToken = parts[1];
    ASSERT_EQ(serverToken.size(), 32);
}

void ServeTest::end(int signal)
{
    ASSERT_EQ(::kill(pid_t(program.processId()), signal), 0);
    ASSERT_TRUE(program.waitForFinished(longest));
    EXPECT_EQ(program.exitStatus(), QProcess::CrashExit);
    EXPECT_EQ(program.exitCode(), signal);
}

ORR::Graph::Descriptor ServeTest::connection() const
{
    ORR::Graph::Descriptor made(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(serverPort);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const timeval patience{longest / 1000, 0};
    ::setsockopt(made.number(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    ::setsockopt(made.number(), SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    if (::connect(made.number(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0)
        made.close();
    return made;
}

// The server may refuse what it has not read to its end.
HttpAnswer ServeTest::say(const QByteArray &bytes) const
{
    const ORR::Graph::Descriptor to = connection();
    for (qsizetype sent = 0; sent < bytes.size();) {
        const ssize_t count = ::send(to.number(), bytes.constData() + sent,
                                     size_t(bytes.size() - sent), MSG_NOSIGNAL);
        if (count <= 0)
            break;
        sent += count;
    }
    QByteArray said;
    std::array<char, 65536> block;
    for (ssize_t count = 1; count > 0;) {
        count = ::recv(to.number(), block.data(), block.size(), 0);
        said.append(block.data(), std::max<ssize_t>(count, 0));
    }
    return answerIn(said);
}

HttpAnswer ServeTest::ask(const HttpRequest &request) const
{
    const QByteArray own = "127.0.0.1:" + QByteArray::number(serverPort);
    QByteArray head = request.method + ' ' + request.path
        + " HTTP/1.1\r\nHost: " + (request.host.isEmpty() ? own : request.host) + "\r\n";
    for (const QByteArray &field : request.fields)
        head += field + "\r\n";
    if (!request.body.isEmpty() || request.method == "POST")
        head += "Content-Length: " + QByteArray::number(request.body.size()) + "\r\n";
    return say(head + "\r\n" + request.body);
}

HttpAnswer ServeTest::post(const QByteArray &name, const QByteArray &body) const
{
    return ask({.method = "POST",
                .path = target(name),
                .fields = {"Origin: http://127.0.0.1:" + QByteArray::number(serverPort),
                           "Sec-Fetch-Site: same-origin"},
                .body = body});
}

qint64 ServeTest::edit(const QByteArray &text, const QByteArray &engine) const
{
    return post("text?engine=" + engine, text).json()[u"version"_s].toInteger(-1);
}

QJsonObject ServeTest::waitFor(const std::function<bool(const QJsonObject &)> &condition) const
{
    QElapsedTimer timer;
    timer.start();
    QByteArray version = "-1";
    while (timer.elapsed() < longest) {
        const QJsonObject state = get("state?after=" + version).json();
        if (state.isEmpty() || condition(state))
            return state;
        version = QByteArray::number(state[u"version"_s].toInteger());
    }
    ADD_FAILURE() << "waited in vain";
    return {};
}

QJsonObject ServeTest::settled() const
{
    return waitFor([](const QJsonObject &state) {
        const bool isDrawn = state[u"page"_s][u"text"_s] == state[u"text"_s][u"version"_s];
        return !state[u"busy"_s].toBool() && (isDrawn || !state[u"fault"_s].toString().isEmpty());
    });
}

QByteArray ServeTest::page(const QJsonObject &state) const
{
    return get("page/" + QByteArray::number(state[u"page"_s][u"version"_s].toInteger())).body;
}

QList<qint64> ServeTest::children() const
{
    QFile file(u"/proc/%1/task/%1/children"_s.arg(program.processId()));
    QList<qint64> children;
    if (!file.open(QIODevice::ReadOnly))
        return children;
    for (const QByteArray &child : file.readAll().simplified().split(' ')) {
        if (!child.isEmpty())
            children += child.toLongLong();
    }
    return children;
}

QStringList ServeTest::allFiles() const
{
    return QDir(path(u"."_s))
        .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                   QDir::Name);
}

qint64 ServeTest::peakMemory() const
{
    QFile file(u"/proc/%1/status"_s.arg(program.processId()));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray status = file.readAll();
    const qsizetype start = status.indexOf("VmHWM:") + 6;
    return status.sliced(start, status.indexOf("kB", start) - start).trimmed().toLongLong();
}

QByteArray ServeTest::labelled(const QByteArray &label)
{
    return "digraph { a [label=\"" + label + "\" area=1]; }";
}

QByteArray ServeTest::slowGraph()
{
    QByteArray graph = "digraph {";
    for (int i = 0; i < 300'000; ++i)
        graph += 'n' + QByteArray::number(i) + " [area=" + QByteArray::number(i + 1) + "];\n";
    return graph + '}';
}
