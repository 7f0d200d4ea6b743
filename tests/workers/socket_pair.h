#pragma once

#include <array>

#include <sys/socket.h>
#include <unistd.h>

// Two sockets that are connected, closed with the object.
class SocketPair
{
public:
    SocketPair()
    {
        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
            ends = {-1, -1};
    }
    ~SocketPair()
    {
        close(0);
        close(1);
    }
    SocketPair(const SocketPair &) = delete;
    SocketPair &operator=(const SocketPair &) = delete;

    int operator[](size_t end) const { return ends[end]; }
    void close(size_t end)
    {
        if (ends[end] != -1)
            ::close(ends[end]);
        ends[end] = -1;
    }

private:
    std::array<int, 2> ends{};
};
