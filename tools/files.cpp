#include "tools/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace ORR::Docs {

namespace {

void tell(const QFile &file)
{
    std::fprintf(stderr, "%s: %s\n", qPrintable(file.fileName()), qPrintable(file.errorString()));
}

} // namespace

QByteArray readFile(const QString &path)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        return file.readAll();
    tell(file);
    return {};
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly) && file.readAll() == bytes)
        return true;
    file.close();
    QDir().mkpath(QFileInfo(path).path());
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush())
        return true;
    tell(file);
    return false;
}

} // namespace ORR::Docs
