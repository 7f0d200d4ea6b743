#include "companion/draw_run.h"

#include "support/golden.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>

#include <csignal>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList given{u"faulty.dot"_s, u"good.dot"_s, u"waits.dot"_s};

} // namespace

void DrawTest::SetUp()
{
    // A shell lets what it runs in the background ignore some of them, and so would the program.
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        std::signal(signal, SIG_DFL);
    writeFile(u"good.dot"_s, smallGraph());
    writeFile(u"faulty.dot"_s, "digraph {");
    ASSERT_EQ(::mkfifo(path(u"waits.dot"_s).toUtf8().constData(), 0600), 0);
}

ProgramRun DrawTest::drawMany(const QStringList &arguments, const QByteArray &input) const
{
    return run({.arguments = QStringList{u"draw"_s} + arguments, .input = input});
}

ProgramRun DrawTest::shell(const QString &command) const
{
    return run({.arguments = {u"-c"_s, command, QStringLiteral(ORR_PROGRAM)}, .command = u"sh"_s});
}

std::unique_ptr<QProcess> DrawTest::start(const QStringList &arguments) const
{
    auto program = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"FONTCONFIG_FILE"_s, QStringLiteral(ORR_TEST_FONTS));
    program->setProcessEnvironment(environment);
    program->setWorkingDirectory(path(u"."_s));
    program->start(QStringLiteral(ORR_PROGRAM), QStringList{u"draw"_s} + arguments);
    EXPECT_TRUE(program->waitForStarted());
    return program;
}

ORR::Graph::Descriptor DrawTest::waitForWorker() const
{
    constexpr int longest = 20'000; // milliseconds
    const QByteArray pipe = path(u"waits.dot"_s).toUtf8();
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < longest; ::usleep(2000)) {
        ORR::Graph::Descriptor end(::open(pipe.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC));
        if (end)
            return end;
    }
    ADD_FAILURE() << "no worker reads the pipe";
    return {};
}

QList<qint64> DrawTest::workersOf(const QProcess &program)
{
    const qint64 process = program.processId();
    QFile file(u"/proc/%1/task/%1/children"_s.arg(process));
    QList<qint64> children;
    if (!file.open(QIODevice::ReadOnly))
        return children;
    for (const QByteArray &child : file.readAll().simplified().split(' ')) {
        if (!child.isEmpty())
            children += child.toLongLong();
    }
    return children;
}

QByteArray DrawTest::drawnAlone(const QString &file, const QString &engine,
                                const QString &format) const
{
    QStringList arguments{u"-T"_s, format, file};
    if (!engine.isEmpty())
        arguments << u"-K"_s << engine;
    const ProgramRun drawn =
        run({.arguments = arguments, .command = QStringLiteral(ORR_LAYOUT_PROGRAM)});
    EXPECT_TRUE(succeeded(drawn)) << file.toStdString();
    return drawn.output;
}

QStringList DrawTest::newFiles() const
{
    QStringList names =
        QDir(path(u"."_s))
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                       QDir::Name);
    for (const QString &name : given)
        names.removeOne(name);
    return names;
}

QList<QJsonObject> jsonLines(const QByteArray &text)
{
    QList<QJsonObject> objects;
    for (const QByteArray &line : text.trimmed().split('\n')) {
        const QJsonDocument document = QJsonDocument::fromJson(line);
        EXPECT_TRUE(document.isObject()) << line.toStdString();
        objects += document.object();
    }
    return objects;
}
