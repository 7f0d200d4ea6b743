#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

#include <optional>
#include <utility>

// What has an operator for Qt's streams, as the bytes that such a stream writes.
namespace ORR::Companion {

template <typename Value>
QByteArray bytesOf(const Value &value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}

// Nothing if the bytes are no such value.
template <typename Value>
std::optional<Value> valueOf(const QByteArray &bytes)
{
    Value value;
    QDataStream stream(bytes);
    stream >> value;
    return stream.status() == QDataStream::Ok ? std::optional(std::move(value)) : std::nullopt;
}

} // namespace ORR::Companion
