#include "driver/open_watch.h"

#include <gtest/gtest.h>

#include <QFile>

#include <array>
#include <cstring>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>

OpenWatch::OpenWatch(const QString &folder) : queue(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    EXPECT_GE(inotify_add_watch(queue, QFile::encodeName(folder).constData(), IN_OPEN), 0);
}

OpenWatch::~OpenWatch()
{
    close(queue);
}

void OpenWatch::alsoWatch(const QString &path)
{
    const int watch = inotify_add_watch(queue, QFile::encodeName(path).constData(), IN_OPEN);
    EXPECT_GE(watch, 0) << path.toStdString();
    single.insert(watch, path);
}

QStringList OpenWatch::opened()
{
    QStringList names;
    alignas(inotify_event) std::array<char, 65536> events;
    for (;;) {
        const ssize_t size = read(queue, events.data(), events.size());
        if (size <= 0)
            return names;
        for (ssize_t at = 0; at < size;) {
            inotify_event event;
            std::memcpy(&event, events.data() + at, sizeof event);
            names += single.contains(event.wd)
                ? single.value(event.wd)
                : QString::fromUtf8(event.len ? events.data() + at + sizeof event : "");
            at += static_cast<ssize_t>(sizeof event + event.len);
        }
    }
}

ConnectionTrap::ConnectionTrap() : listener(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto *const any = reinterpret_cast<sockaddr *>(&address);
    EXPECT_EQ(bind(listener, any, size), 0);
    EXPECT_EQ(listen(listener, 16), 0);
    EXPECT_EQ(getsockname(listener, any, &size), 0);
    portNumber = ntohs(address.sin_port);
}

ConnectionTrap::~ConnectionTrap()
{
    close(listener);
}

bool ConnectionTrap::sprung()
{
    const int connection = accept(listener, nullptr, nullptr);
    if (connection < 0)
        return false;
    close(connection);
    return true;
}
