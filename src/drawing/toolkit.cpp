#include "drawing/toolkit.h"

#include "drawing/font_rules.h"
#include "drawing/held_standard_error.h"
#include "drawing/open_files.h"
#include "drawing/surroundings.h"
#include "output/files/descriptor.h"
#include "output/files/unfinished_file.h"

#include <QApplication>
#include <QByteArray>
#include <QFontInfo>
#include <QHashSeed>

#include <csignal>
#include <cstdlib>
#include <string>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ORR::Drawing {

namespace {

// More than twice what the toolkit, the fonts and the files of a drawing have open at any one time.
constexpr int neededDescriptors = 12;

// As long as it lives, there is no place for temporary files. Without a folder of the session the
// toolkit would make one there when it starts, and leave it behind.
class NoTemporaryFolder
{
public:
    NoTemporaryFolder()
    {
        wasSet = qEnvironmentVariableIsSet(variable);
        former = qgetenv(variable);
        qputenv(variable, "/dev/null");
    }
    ~NoTemporaryFolder()
    {
        if (wasSet)
            qputenv(variable, former);
        else
            qunsetenv(variable);
    }
    NoTemporaryFolder(const NoTemporaryFolder &) = delete;
    NoTemporaryFolder &operator=(const NoTemporaryFolder &) = delete;

private:
    static constexpr char variable[] = "TMPDIR";
    bool wasSet;
    QByteArray former;
};

volatile std::sig_atomic_t isStarting = 0;

// Says in one line what the held standard error says in several. It makes only calls that a
// handler of a signal may make.
void tellFailedStart()
{
    char said[1000];
    char line[sizeof said + 64] = "Unable to start the toolkit";
    size_t length = std::char_traits<char>::length(line);
    const size_t count = HeldStandardError::copyText(said, sizeof said);
    const char *separator = ": ";
    bool inWord = false;
    for (size_t i = 0; i < count; ++i) {
        const bool isBlank = said[i] == ' ' || (said[i] >= '\t' && said[i] <= '\r');
        if (!isBlank && !inWord) {
            while (*separator)
                line[length++] = *separator++;
            separator = " ";
        }
        if (!isBlank)
            line[length++] = said[i];
        inWord = !isBlank;
    }
    line[length++] = '\n';
    // There is nobody to tell if this fails.
    [[maybe_unused]] const auto written = ::write(HeldStandardError::messages(), line, length);
}

[[noreturn]] void endProcess()
{
    if (isStarting)
        tellFailedStart();
    Graph::removeUnfinishedFiles();
    ::_exit(EXIT_FAILURE);
}

void endFailedStart()
{
    if (isStarting)
        endProcess();
}

void endAbortedStart(int /*signal*/)
{
    endProcess();
}

// A missing plugin, for one: the status of any other failure instead of a crash.
void passFatalMessagesOnly(QtMsgType type, const QMessageLogContext & /*context*/,
                           const QString &message)
{
    if (type != QtFatalMsg)
        return;
    // While the toolkit starts it is told with whatever else was said.
    const int descriptor = isStarting ? STDERR_FILENO : HeldStandardError::messages();
    Graph::writeToEnd(descriptor, message.toLocal8Bit() + '\n');
    endProcess();
}

} // namespace

void prepareToolkit()
{
    shutOutSurroundings();
    QHashSeed::setDeterministicGlobalSeed();
    qInstallMessageHandler(passFatalMessagesOnly);
}

void startToolkit(const char *programName)
{
    if (!canOpenFiles(neededDescriptors)) {
        Graph::writeToEnd(STDERR_FILENO, "Unable to open enough files\n");
        std::exit(EXIT_FAILURE);
    }
    // The application object keeps references to both.
    static QByteArray name(programName);
    static char *arguments[] = {name.data(), nullptr};
    static int count = 1;

    const NoTemporaryFolder nowhere;
    const HeldStandardError held;
    std::atexit(endFailedStart);
    struct sigaction former = {};
    struct sigaction action = {};
    action.sa_handler = endAbortedStart;
    ::sigaction(SIGABRT, &action, &former);
    isStarting = 1;
    // It is never taken down, which takes longer than a small drawing; the end of the process does
    // it.
    new QApplication(count, arguments);
    isStarting = 0;
    ::sigaction(SIGABRT, &former, nullptr);
}

QString fontFault()
{
    const HeldStandardError held;
    settleFontRules();
    const bool isFound = !QFontInfo(QFont()).family().isEmpty();
    // Without its configuration the library takes one that is built in, and other fonts.
    if (held.text().contains("Cannot load default config file"))
        return u"Unable to read the configuration of the fonts\n"_s;
    return isFound ? QString() : u"Unable to find a font\n"_s;
}

} // namespace ORR::Drawing
