#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

#include <optional>

// Messages on a pipe: the length of each as 8 bytes, the highest first, and then its bytes.
namespace ORR::Companion {

// The bytes that travel.
QByteArray frameOf(const QByteArray &message);

// The same for what has an operator for streams.
template <typename Value>
QByteArray frameOfValue(const Value &value)
{
    QByteArray message;
    QDataStream stream(&message, QIODevice::WriteOnly);
    stream << value;
    return frameOf(message);
}

// The value of a message, or nothing if it is none.
template <typename Value>
std::optional<Value> valueOf(const QByteArray &message)
{
    Value value;
    QDataStream stream(message);
    stream >> value;
    return stream.status() == QDataStream::Ok ? std::optional(std::move(value)) : std::nullopt;
}

// Puts together what arrives in pieces.
class FrameReader
{
public:
    enum State { More, Waiting, Ended };

    // Reads once from a descriptor. Waiting: there is nothing at present in one that does not
    // block. Ended: there will be no more.
    State readFrom(int descriptor);

    // The next whole message, or nothing.
    std::optional<QByteArray> next();

private:
    QByteArray bytes;
    qsizetype start = 0; // of what has not been handed out
};

} // namespace ORR::Companion
