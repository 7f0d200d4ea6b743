#include "companion/import/reading/gzip_bytes.h"

#include "graph/limits.h"

#include <algorithm>
#include <limits>

#include <zlib.h>

namespace ORR::Companion {

namespace {

constexpr qsizetype packedPiece = 1 << 16;
constexpr int gzipOnly = 16; // added to the size of the window

class Unpacking
{
public:
    Unpacking() { isReady = inflateInit2(&stream, MAX_WBITS + gzipOnly) == Z_OK; }
    ~Unpacking() { inflateEnd(&stream); }
    Q_DISABLE_COPY_MOVE(Unpacking)

    // Appends to `bytes`, up to a size. Whether all that was packed is there, to its last member.
    bool unpack(QByteArrayView packed, qsizetype most, QByteArray *bytes);

private:
    z_stream stream = {};
    bool isReady = false;
};

bool Unpacking::unpack(QByteArrayView packed, qsizetype most, QByteArray *bytes)
{
    int state = isReady ? Z_OK : Z_STREAM_ERROR;
    while (state == Z_OK && bytes->size() < most) {
        if (stream.avail_in == 0) {
            const qsizetype given =
                std::min<qsizetype>(packed.size(), std::numeric_limits<int>::max());
            // The library only reads from it.
            stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(packed.data()));
            stream.avail_in = uInt(given);
            packed = packed.sliced(given);
        }
        const qsizetype held = bytes->size();
        bytes->resize(held + packedPiece);
        stream.next_out = reinterpret_cast<Bytef *>(bytes->data() + held);
        stream.avail_out = uInt(packedPiece);
        state = inflate(&stream, Z_NO_FLUSH);
        bytes->resize(held + packedPiece - qsizetype(stream.avail_out));
        if (state == Z_STREAM_END && (stream.avail_in > 0 || !packed.isEmpty()))
            state = inflateReset(&stream);
    }
    return state == Z_STREAM_END;
}

} // namespace

bool isGzip(QByteArrayView bytes)
{
    return bytes.startsWith("\x1f\x8b");
}

std::optional<QByteArray> unpackedGzip(QByteArrayView packed)
{
    QByteArray bytes;
    Unpacking unpacking;
    if (!unpacking.unpack(packed, Graph::Limits::longestInput, &bytes))
        return std::nullopt;
    return bytes;
}

QByteArray unpackedGzipBeginning(QByteArrayView packed)
{
    QByteArray bytes;
    Unpacking unpacking;
    unpacking.unpack(packed, packedPiece, &bytes);
    return bytes;
}

} // namespace ORR::Companion
