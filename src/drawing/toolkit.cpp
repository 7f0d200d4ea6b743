#include "drawing/toolkit.h"

#include "drawing/font_rules.h"
#include "drawing/held_standard_error.h"
#include "drawing/open_files.h"
#include "drawing/printable_bytes.h"
#include "drawing/surroundings.h"
#include "graph/message_text.h"
#include "output/files/descriptor.h"
#include "output/files/unfinished_file.h"

#include <QByteArray>
#include <QFontInfo>
#include <QGuiApplication>
#include <QHashSeed>

#include <csignal>
#include <cstddef>
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

// For standard output if the start fails; there while it lasts.
const char *lastBytes = nullptr;
std::size_t lastCount = 0;

bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// Leaves one space between words, and none around them. Gives the new length.
std::size_t withSingleBlanks(char *text, std::size_t length)
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < length; ++i) {
        if (isBlank(text[i]))
            continue;
        if (kept > 0 && isBlank(text[i - 1]))
            text[kept++] = ' ';
        text[kept++] = text[i];
    }
    return kept;
}

// A handler of a signal may call it.
void writeLastWords()
{
    while (lastCount > 0) {
        const auto written = ::write(STDOUT_FILENO, lastBytes, lastCount);
        if (written <= 0)
            return;
        lastBytes += written;
        lastCount -= std::size_t(written);
    }
}

// Says in one line what the held standard error says in several. It makes only calls that a
// handler of a signal may make.
void tellFailedStart()
{
    char said[1000];
    char line[longestPrintable * sizeof said + 64] = "Unable to start the toolkit";
    std::size_t length = std::char_traits<char>::length(line);
    const std::size_t count =
        withSingleBlanks(said, HeldStandardError::copyText(said, sizeof said));
    if (count > 0) {
        line[length++] = ':';
        line[length++] = ' ';
        length += writePrintable(said, count, line + length);
    }
    line[length++] = '\n';
    // There is nobody to tell if this fails.
    [[maybe_unused]] const auto written = ::write(HeldStandardError::messages(), line, length);
}

[[noreturn]] void endProcess()
{
    if (isStarting) {
        writeLastWords();
        tellFailedStart();
    }
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
    if (isStarting)
        Graph::writeToEnd(STDERR_FILENO, message.toLocal8Bit() + '\n');
    else
        Graph::writeToEnd(HeldStandardError::messages(),
                          Graph::printableMessage(message).toLocal8Bit() + '\n');
    endProcess();
}

} // namespace

void prepareToolkit()
{
    shutOutSurroundings();
    QHashSeed::setDeterministicGlobalSeed();
    qInstallMessageHandler(passFatalMessagesOnly);
}

void startToolkit(const char *programName, const QByteArray &lastWords)
{
    lastBytes = lastWords.constData();
    lastCount = std::size_t(lastWords.size());
    if (!canOpenFiles(neededDescriptors)) {
        writeLastWords();
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
    new QGuiApplication(count, arguments);
    isStarting = 0;
    lastCount = 0;
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
