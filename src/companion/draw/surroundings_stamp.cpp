#include "companion/draw/surroundings_stamp.h"

#include "companion/command/version.h"
#include "drawing/home_directory.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QFile>

#include <cerrno>
#include <utility>

#include <fontconfig/fontconfig.h>
#include <sys/stat.h>

namespace ORR::Companion {

namespace {

// Its name, size and time of change.
void addFile(QCryptographicHash *hash, const char *file)
{
    hash->addData(QByteArrayView(file));
    struct stat status = {};
    if (::stat(file, &status) != 0)
        return;
    const qint64 time = status.st_mtim.tv_sec * qint64(1'000'000'000) + status.st_mtim.tv_nsec;
    hash->addData('\n' + QByteArray::number(qint64(status.st_size)) + ' ' + QByteArray::number(time)
                  + '\n');
}

void addFonts(QCryptographicHash *hash, const FcFontSet *fonts)
{
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        FcChar8 *file = nullptr;
        if (FcPatternGetString(fonts->fonts[i], FC_FILE, 0, &file) == FcResultMatch)
            addFile(hash, reinterpret_cast<const char *>(file));
    }
}

void addConfiguration(QCryptographicHash *hash, FcConfig *configuration)
{
    FcStrList *const files = FcConfigGetConfigFiles(configuration);
    if (!files)
        return;
    while (const FcChar8 *const file = FcStrListNext(files))
        addFile(hash, reinterpret_cast<const char *>(file));
    FcStrListDone(files);
}

// What a drawing in VSDX is made from.
void addTemplates(QCryptographicHash *hash, const QString &home)
{
    const QString folder = Drawing::visioTemplateDirectory(home);
    if (folder.isEmpty())
        return;
    QStringList files;
    QDirIterator templates(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (templates.hasNext())
        files += templates.next();
    files.sort();
    for (const QString &file : std::as_const(files))
        addFile(hash, QFile::encodeName(file).constData());
}

} // namespace

QByteArray surroundingsStamp()
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(QByteArray(programVersion) + '\n');
    addFile(&hash, "/proc/self/exe");
    const auto clues = Drawing::homeClues(QString::fromLocal8Bit(program_invocation_name));
    addTemplates(&hash, Drawing::findHome(clues).directory);
    FcConfig *const configuration = FcInitLoadConfigAndFonts();
    if (configuration) {
        addConfiguration(&hash, configuration);
        addFonts(&hash, FcConfigGetFonts(configuration, FcSetSystem));
        FcConfigDestroy(configuration);
    }
    return hash.result().toHex();
}

} // namespace ORR::Companion
