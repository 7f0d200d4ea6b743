#include "package_parts.h"

#include "fuzz_target.h"

#include <QFile>
#include <QTemporaryDir>

#include <array>

#include <unzip.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray currentPart(unzFile zip, const unz_file_info &info)
{
    QByteArray bytes(static_cast<qsizetype>(info.uncompressed_size), '\0');
    require(unzOpenCurrentFile(zip) == UNZ_OK, "a part that opens");
    const int read = unzReadCurrentFile(zip, bytes.data(), static_cast<unsigned>(bytes.size()));
    require(read == bytes.size(), "a part of the size that it tells");
    // Only now does the library compare the check sums.
    require(unzCloseCurrentFile(zip) == UNZ_OK, "a part with the right check sum");
    return bytes;
}

} // namespace

QMap<QString, QByteArray> packageParts(const QByteArray &package)
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath(u"package"_s));
    require(file.open(QIODevice::WriteOnly) && file.write(package) == package.size(),
            "room for a package");
    file.close();

    unzFile zip = unzOpen(QFile::encodeName(file.fileName()).constData());
    require(zip, "a zip file");
    QMap<QString, QByteArray> parts;
    for (int at = unzGoToFirstFile(zip); at == UNZ_OK; at = unzGoToNextFile(zip)) {
        unz_file_info info{};
        std::array<char, 256> name{};
        unzGetCurrentFileInfo(zip, &info, name.data(), name.size(), nullptr, 0, nullptr, 0);
        const QString part = QString::fromUtf8(name.data());
        require(!parts.contains(part), "each part once");
        parts.insert(part, currentPart(zip, info));
    }
    unzClose(zip);
    return parts;
}
