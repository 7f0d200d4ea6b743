// The main of a target where there is no libFuzzer: feeds it the files of a folder, one after the
// other. Its status tells that there were some; a broken promise ends it earlier.
#include "fuzz_target.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    const QDir folder(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    int run = 0;
    for (const QString &name : names) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        std::fprintf(stderr, "%s\n", qPrintable(name));
        const QByteArray bytes = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
        ++run;
    }
    delete qApp; // what its fonts hold would be taken for lost
    return run > 0 && run == names.size() ? EXIT_SUCCESS : EXIT_FAILURE;
}
