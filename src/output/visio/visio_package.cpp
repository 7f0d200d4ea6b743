#include "output/visio/visio_package.h"

#include <zip.h>

#include <algorithm>
#include <cstring>
#include <new>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// What the library takes in one call is counted in 32 bits.
constexpr qsizetype largestPiece = 1 << 30;

zip_fileinfo fixedStamp()
{
    zip_fileinfo info{};
    info.tmz_date.tm_year = 1980;
    info.tmz_date.tm_mday = 1;
    return info;
}

int writePiece(zipFile zip, const QByteArray &bytes)
{
    int error = ZIP_OK;
    for (qsizetype at = 0; error == ZIP_OK && at < bytes.size(); at += largestPiece) {
        const qsizetype size = std::min(largestPiece, bytes.size() - at);
        error = zipWriteInFileInZip(zip, bytes.constData() + at, static_cast<unsigned>(size));
    }
    return error;
}

int writePart(zipFile zip, const QString &name, const QByteArrayList &pieces)
{
    const zip_fileinfo info = fixedStamp();
    int error = zipOpenNewFileInZip(zip, name.toUtf8().constData(), &info, nullptr, 0, nullptr, 0,
                                    nullptr, Z_DEFLATED, Z_DEFAULT_COMPRESSION);
    for (qsizetype i = 0; error == ZIP_OK && i < pieces.size(); ++i)
        error = writePiece(zip, pieces.at(i));
    return error == ZIP_OK ? zipCloseFileInZip(zip) : error;
}

// The package while it is put together. The library goes back to the head of a part once the part
// is complete, which not every output could do.
struct Package
{
    QByteArray bytes;
    qsizetype position = 0;
};

void *openPackage(void *package, const void * /*name*/, int /*mode*/)
{
    return package;
}

uLong readPackage(void * /*opaque*/, void * /*stream*/, void * /*buffer*/, uLong /*size*/)
{
    return 0;
}

uLong writePackage(void * /*opaque*/, void *stream, const void *buffer, uLong size)
try {
    auto *package = static_cast<Package *>(stream);
    const auto count = static_cast<qsizetype>(size);
    const qsizetype end = package->position + count;
    if (end > package->bytes.size())
        package->bytes.resize(end);
    std::memcpy(package->bytes.data() + package->position, buffer, size);
    package->position = end;
    return size;
} catch (const std::bad_alloc &) {
    return 0; // the library is C, through which nothing is thrown
}

ZPOS64_T tellPackage(void * /*opaque*/, void *stream)
{
    return static_cast<ZPOS64_T>(static_cast<const Package *>(stream)->position);
}

long seekPackage(void * /*opaque*/, void *stream, ZPOS64_T offset, int origin)
{
    auto *package = static_cast<Package *>(stream);
    const qsizetype starts[]{0, package->position, package->bytes.size()};
    package->position = starts[origin] + static_cast<qsizetype>(offset);
    return 0;
}

int closePackage(void * /*opaque*/, void * /*stream*/)
{
    return 0;
}

// Compresses all parts. Gives the library's error code.
int zipParts(const QMap<QString, QByteArrayList> &parts, Package *package)
{
    zlib_filefunc64_def functions{openPackage, readPackage,  writePackage, tellPackage,
                                  seekPackage, closePackage, closePackage, package};
    zipFile zip = zipOpen2_64("", APPEND_STATUS_CREATE, nullptr, &functions);
    if (!zip)
        return ZIP_INTERNALERROR;
    int error = ZIP_OK;
    for (auto part = parts.constBegin(); error == ZIP_OK && part != parts.constEnd(); ++part)
        error = writePart(zip, part.key(), part.value());
    const int closing = zipClose(zip, nullptr);
    return error == ZIP_OK ? closing : error;
}

} // namespace

QString saveVisioPackage(const OutputTarget &target, const QMap<QString, QByteArrayList> &parts)
{
    Output output(target);
    if (!output.isOpen())
        return u"Couldn't open output file for writing\n"_s;
    Package package;
    int error = zipParts(parts, &package);
    if (error == ZIP_OK && (!output.write(package.bytes) || !output.commit()))
        error = ZIP_ERRNO;
    return error == ZIP_OK ? QString() : u"Unable to save file. Error code %1\n"_s.arg(error);
}

} // namespace ORR::Graph
