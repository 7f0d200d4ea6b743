#pragma once

#include "driver/program_run.h"
#include "output/files/descriptor.h"

#include <QJsonObject>
#include <QProcess>

// What a server said.
struct HttpAnswer
{
    int status = 0; // 0 if it said nothing, or no HTTP
    QByteArray head;
    QByteArray body;

    // The value of a field of the head, empty if it is missing.
    QByteArray field(const QByteArray &name) const;
    QJsonObject json() const;
};

// A request beyond its address: what differs from what a page of the server sends.
struct HttpRequest
{
    QByteArray method = "GET";
    QByteArray path = {}; // as it stands in the address, from its slash on
    QByteArray host = {}; // empty for the server's own
    QByteArrayList fields = {}; // further lines of the head
    QByteArray body = {};
};

// Calls `orr serve`, the real program, in a folder of the test's own, and speaks to it over plain
// sockets. What it does is waited for, far longer than it takes.
class ServeTest : public ProgramTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    // The program at work. A shell may start it as $0.
    void start(const QStringList &arguments, const QString &shell = {});
    // Ends it by a signal, which it must be by.
    void end(int signal);

    quint16 port() const { return serverPort; }
    const QByteArray &token() const { return serverToken; }
    // "/TOKEN/" and this behind it.
    QByteArray target(const QByteArray &name) const { return '/' + serverToken + '/' + name; }

    // A connection to the server.
    ORR::Graph::Descriptor connection() const;
    // Sends bytes and gives what is said until the connection ends.
    HttpAnswer say(const QByteArray &bytes) const;
    HttpAnswer ask(const HttpRequest &request) const;
    HttpAnswer get(const QByteArray &name) const { return ask({.path = target(name)}); }
    HttpAnswer post(const QByteArray &name, const QByteArray &body = {}) const;

    // The text is edited to be this; gives its version.
    qint64 edit(const QByteArray &text, const QByteArray &engine = "treemap") const;
    QJsonObject state() const { return get("state").json(); }
    // Waits for a state of which this is true, and gives it; an empty one if there is none.
    QJsonObject waitFor(const std::function<bool(const QJsonObject &)> &condition) const;
    // Waits until the text is drawn and checked, or can't be.
    QJsonObject settled() const;
    // The last page that was drawn.
    QByteArray page(const QJsonObject &state) const;

    // The processes that it has started.
    QList<qint64> children() const;
    // Names of all files in the folder, also the hidden ones.
    QStringList allFiles() const;
    // Kilobytes that the server had at most.
    qint64 peakMemory() const;

    static QByteArray labelled(const QByteArray &label);
    // A graph that keeps a worker busy for seconds.
    static QByteArray slowGraph();

    QProcess program;

private:
    quint16 serverPort = 0;
    QByteArray serverToken;
};
