#include "output/visio/visio_package.h"

#include <QFile>

#include <zip.h>

#include <algorithm>

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

} // namespace

QString saveVisioPackage(const QString &fileName, const QMap<QString, QByteArrayList> &parts)
{
    zipFile zip = zipOpen(QFile::encodeName(fileName).constData(), APPEND_STATUS_CREATE);
    if (!zip)
        return u"Couldn't open output file for writing\n"_s;
    int error = ZIP_OK;
    for (auto part = parts.constBegin(); error == ZIP_OK && part != parts.constEnd(); ++part)
        error = writePart(zip, part.key(), part.value());
    // A full disk may show only now.
    const int closing = zipClose(zip, nullptr);
    if (error == ZIP_OK)
        error = closing;
    return error == ZIP_OK ? QString() : u"Unable to save file. Error code %1\n"_s.arg(error);
}

} // namespace ORR::Graph
