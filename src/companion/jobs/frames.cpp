#include "companion/jobs/frames.h"

#include <QtEndian>

#include <array>
#include <cerrno>

#include <unistd.h>

namespace ORR::Companion {

namespace {

constexpr qsizetype lengthSize = sizeof(quint64);

} // namespace

QByteArray frameOf(const QByteArray &message)
{
    QByteArray frame(lengthSize, Qt::Uninitialized);
    qToBigEndian(static_cast<quint64>(message.size()), frame.data());
    return frame + message;
}

FrameReader::State FrameReader::readFrom(int descriptor)
{
    std::array<char, 65536> block;
    ssize_t count = 0;
    do {
        count = ::read(descriptor, block.data(), block.size());
    } while (count == -1 && errno == EINTR);
    if (count == -1 && (errno == EAGAIN || errno == EWOULDBLOCK))
        return Waiting;
    if (count <= 0)
        return Ended;
    bytes.append(block.data(), count);
    return More;
}

std::optional<QByteArray> FrameReader::next()
{
    if (bytes.size() - start < lengthSize)
        return std::nullopt;
    const auto length = qsizetype(qFromBigEndian<quint64>(bytes.constData() + start));
    if (bytes.size() - start - lengthSize < length)
        return std::nullopt;
    QByteArray message = bytes.sliced(start + lengthSize, length);
    start += lengthSize + length;
    if (start == bytes.size()) {
        bytes.clear();
        start = 0;
    }
    return message;
}

} // namespace ORR::Companion
