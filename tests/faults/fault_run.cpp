#include "faults/fault_run.h"

#include "drawing/format_table.h"
#include "support/golden.h"

#include <QDir>
#include <QElapsedTimer>

#include <csignal>
#include <unistd.h>

using namespace Qt::StringLiterals;

QByteArray largeGraph(int nodes)
{
    QByteArray graph = "digraph {";
    for (int i = 0; i < nodes; ++i) {
        const QByteArray number = QByteArray::number(i);
        graph += "n" + number + " [label=\"Node " + number
            + "\" area=" + QByteArray::number(i % 97 + 1) + "];\n";
    }
    return graph + "}";
}

std::function<void()> limited(__rlimit_resource resource, rlim_t limit)
{
    return [=] {
        const rlimit limits{limit, limit};
        if (::setrlimit(resource, &limits) != 0)
            ::_exit(99);
    };
}

std::function<void()> closed(const QList<int> &descriptors)
{
    return [=] {
        for (const int descriptor : descriptors)
            ::close(descriptor);
    };
}

std::vector<const char *> formatsOfTests()
{
    std::vector<const char *> names;
    for (const ORR::Drawing::FormatRow &row : ORR::Drawing::formatTable())
        names.push_back(row.name.data());
    return names;
}

std::string formatOfTest(const testing::TestParamInfo<const char *> &test)
{
    return std::string(test.param).substr(0, 4);
}

void FaultTest::SetUp()
{
    // A shell lets what it runs in the background ignore some of them, and so would the program.
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGXCPU, SIGXFSZ})
        std::signal(signal, SIG_DFL);
    writeFile(output(), oldContent);
}

QStringList FaultTest::arguments(const QString &file) const
{
    return toStandardOutput() + QStringList{u"-o"_s, file};
}

QStringList FaultTest::toStandardOutput() const
{
    return {u"-K"_s, u"treemap"_s, u"-T"_s, format()};
}

QByteArray FaultTest::drawing(const QByteArray &graph) const
{
    const ProgramRun drawn = draw(graph, format());
    EXPECT_TRUE(succeeded(drawn));
    EXPECT_FALSE(drawn.output.isEmpty());
    return drawn.output;
}

QByteArray FaultTest::writeMessage() const
{
    if (format() == "vsdx"_L1)
        return "Unable to save file. Error code -1\n";
    const bool isImage = format() == "png"_L1 || format() == "jpg"_L1;
    return isImage ? "Could not save image to file\n" : "Unable to write to file\n";
}

QByteArray FaultTest::openMessage() const
{
    if (format() == "svg"_L1)
        return "Unable to open file\n";
    return format() == "vsdx"_L1 ? "Couldn't open output file for writing\n" : writeMessage();
}

std::optional<ProgramRun> FaultTest::runMounted(const QString &script,
                                                const QByteArray &graph) const
{
    constexpr int cannotMount = 77;
    const QStringList shell{u"-m"_s, u"/bin/sh"_s, u"-c"_s};
    const QStringList called{QStringLiteral(ORR_PROGRAM), format()};
    if (run({.arguments = shell + QStringList(u"exit 0"_s), .command = u"unshare"_s}).status != 0)
        return std::nullopt;
    const ProgramRun done = run({.arguments = shell + QStringList(script) + called,
                                 .input = graph,
                                 .command = u"unshare"_s});
    return done.status == cannotMount ? std::nullopt : std::optional(done);
}

std::unique_ptr<QProcess> FaultTest::start(const QStringList &arguments, const QByteArray &graph,
                                           const std::function<void()> &before) const
{
    auto program = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"FONTCONFIG_FILE"_s, QStringLiteral(ORR_TEST_FONTS));
    environment.insert(u"TMPDIR"_s, path(u"."_s));
    program->setProcessEnvironment(environment);
    program->setWorkingDirectory(path(u"."_s));
    if (before)
        program->setChildProcessModifier(before);
    program->start(QStringLiteral(ORR_PROGRAM), arguments);
    program->write(graph);
    program->closeWriteChannel();
    while (program->bytesToWrite() > 0 && program->waitForBytesWritten()) { }
    return program;
}

bool FaultTest::waitForFile(const QString &beginning) const
{
    constexpr int longest = 20'000; // milliseconds
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < longest; ::usleep(200)) {
        const QStringList names = allFiles();
        for (const QString &name : names) {
            if (name.startsWith(beginning))
                return true;
        }
    }
    return false;
}

QStringList FaultTest::allFiles() const
{
    return QDir(path(u"."_s)).entryList(QDir::Files | QDir::System | QDir::Hidden, QDir::Name);
}

testing::AssertionResult FaultTest::isUntouched() const
{
    const QStringList names = allFiles();
    if (names != QStringList(output()))
        return testing::AssertionFailure() << "there is " << names.join(u", "_s).toStdString();
    if (fileContent(output()) != oldContent)
        return testing::AssertionFailure()
            << fileContent(output()).size() << " bytes in place of what stood there";
    return testing::AssertionSuccess();
}
