#include "fuzz_target.h"

#include <QApplication>
#include <QFileInfo>
#include <QHashSeed>
#include <QProcessEnvironment>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

// No setting of the toolkit but ours: what an input does is to depend on the input alone.
void dropToolkitSettings()
{
    for (const QString &name : QProcessEnvironment::systemEnvironment().keys()) {
        if (name.startsWith("QT_"_L1))
            qunsetenv(name.toLocal8Bit().constData());
    }
}

// What the toolkit has to say of odd fonts and pictures would only cost time.
void ignoreMessage(QtMsgType, const QMessageLogContext &, const QString &) { }

// Where there is a file system in memory, drawings are written there.
void chooseTemporaryFolder()
{
    if (!qEnvironmentVariableIsSet("TMPDIR") && QFileInfo(u"/dev/shm"_s).isWritable())
        qputenv("TMPDIR", "/dev/shm");
}

} // namespace

// Linked because it stands beside `require`: libFuzzer alone takes it only if it is there.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    dropToolkitSettings();
    QHashSeed::setDeterministicGlobalSeed();
    qputenv("FONTCONFIG_FILE", ORR_TEST_FONTS);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "72");
    chooseTemporaryFolder();
    qInstallMessageHandler(ignoreMessage);
    // It takes options of its own out of the list, and libFuzzer's are none of its business.
    static int count = 1;
    static char *name[] = {(*argv)[0], nullptr};
    static const auto *const application = new QApplication(count, name);
    Q_UNUSED(application)
    Q_UNUSED(argc)
    return 0;
}

QByteArray inputText(const std::uint8_t *data, std::size_t size)
{
    return {reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)};
}

void require(bool holds, const char *promise)
{
    if (holds)
        return;
    std::fprintf(stderr, "Broken promise: %s\n", promise);
    std::abort();
}
