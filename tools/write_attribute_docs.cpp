// Writes the tables of attributes anew into the pages of a folder.
#include "tools/attribute_docs.h"

#include <QDir>
#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

int fail(const QString &path, const QString &why)
{
    std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(why));
    return 1;
}

int renew(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(path, file.errorString());
    const QString page = QString::fromUtf8(file.readAll());
    file.close();
    const auto [text, failure] = ORR::Docs::renewedPage(page);
    if (!failure.isEmpty())
        return fail(path, failure);
    if (text == page)
        return 0;
    const QByteArray bytes = text.toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        return fail(path, file.errorString());
    std::printf("%s\n", qPrintable(path));
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: write_attribute_docs <folder>\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    int status = folder.exists() ? 0 : fail(folder.path(), u"no such folder"_s);
    const QStringList pages = folder.entryList({u"*.md"_s}, QDir::Files, QDir::Name);
    for (const QString &page : pages)
        status |= renew(folder.filePath(page));
    return status;
}
