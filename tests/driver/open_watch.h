#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

// Tells which files are opened by anybody, without looking at who does it: the kernel reports each
// file of the watched folders as it is opened. Needs no rights and no tracing of processes.
class OpenWatch
{
public:
    // Fails a running test if the folder can't be watched.
    explicit OpenWatch(const QString &folder);
    ~OpenWatch();
    OpenWatch(const OpenWatch &) = delete;
    OpenWatch &operator=(const OpenWatch &) = delete;

    // A single file or device beside the folder, which is reported under its own path.
    void alsoWatch(const QString &path);
    // The names of what was opened since the last call, in order.
    QStringList opened();

private:
    int queue;
    QHash<int, QString> single;
};

// A socket of this machine that waits for connections.
class ConnectionTrap
{
public:
    ConnectionTrap();
    ~ConnectionTrap();
    ConnectionTrap(const ConnectionTrap &) = delete;
    ConnectionTrap &operator=(const ConnectionTrap &) = delete;

    int port() const { return portNumber; }
    // Whether somebody has connected since the last call.
    bool sprung();

private:
    int listener;
    int portNumber = 0;
};
