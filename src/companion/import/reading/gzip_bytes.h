#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

// Bytes that gzip packed (RFC 1952), as tools do that write much.
namespace ORR::Companion {

bool isGzip(QByteArrayView bytes);

// All of it, several members one behind the other; nothing if it is broken, cut off, or would be
// longer than any input may be.
std::optional<QByteArray> unpackedGzip(QByteArrayView packed);

// As much of it as a beginning of the packed bytes gives, up to 64 KB.
QByteArray unpackedGzipBeginning(QByteArrayView packed);

} // namespace ORR::Companion
