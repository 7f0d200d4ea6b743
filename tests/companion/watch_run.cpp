#include "companion/watch_run.h"

#include "support/golden.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <csignal>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int longest = 20'000; // milliseconds

} // namespace

void WatchTest::SetUp()
{
    // A shell lets what it runs in the background ignore some of them, and so would the program.
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        std::signal(signal, SIG_DFL);
}

void WatchTest::TearDown()
{
    if (program.state() != QProcess::NotRunning)
        end(SIGTERM);
}

void WatchTest::start(const QStringList &arguments, const QString &shell)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"FONTCONFIG_FILE"_s, QStringLiteral(ORR_TEST_FONTS));
    program.setProcessEnvironment(environment);
    program.setWorkingDirectory(path(u"."_s));
    const QStringList call = QStringList{u"watch"_s} + arguments;
    if (shell.isEmpty())
        program.start(QStringLiteral(ORR_PROGRAM), call);
    else
        program.start(u"sh"_s, QStringList{u"-c"_s, shell, QStringLiteral(ORR_PROGRAM)} + call);
    ASSERT_TRUE(program.waitForStarted());
}

void WatchTest::end(int signal)
{
    ASSERT_EQ(::kill(pid_t(program.processId()), signal), 0);
    ASSERT_TRUE(program.waitForFinished(longest));
    EXPECT_EQ(program.exitStatus(), QProcess::CrashExit) << errors.toStdString();
    EXPECT_EQ(program.exitCode(), signal);
    listen();
}

testing::AssertionResult WatchTest::says(const QByteArray &text, int times)
{
    return waitFor([&] { return errors.count(text) >= times; })
        << "waiting for \"" << text.toStdString() << '"';
}

testing::AssertionResult WatchTest::prints(const QByteArray &text, int times)
{
    return waitFor([&] { return output.count(text) >= times; })
        << "waiting for \"" << text.toStdString() << '"';
}

testing::AssertionResult WatchTest::shows(const QString &drawing, const QByteArray &text)
{
    return waitFor([&] {
               QFile file(path(drawing));
               return file.open(QIODevice::ReadOnly) && file.readAll().contains(text);
           })
        << "waiting for \"" << text.toStdString() << '"';
}

void WatchTest::replaceFile(const QString &name, const QByteArray &bytes) const
{
    const QString other = name + u"~"_s;
    writeFile(other, bytes);
    ASSERT_EQ(std::rename(path(other).toUtf8().constData(), path(name).toUtf8().constData()), 0);
}

QByteArray WatchTest::labelled(const QByteArray &label)
{
    return "digraph { a [label=\"" + label + "\" area=1]; }";
}

QByteArray WatchTest::slowGraph()
{
    QByteArray graph = "digraph {";
    for (int i = 0; i < 300'000; ++i)
        graph += 'n' + QByteArray::number(i) + " [area=" + QByteArray::number(i + 1) + "];\n";
    return graph + '}';
}

QList<qint64> WatchTest::children() const
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

QStringList WatchTest::allFiles() const
{
    return QDir(path(u"."_s))
        .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                   QDir::Name);
}

testing::AssertionResult WatchTest::waitFor(const std::function<bool()> &condition)
{
    QElapsedTimer timer;
    timer.start();
    for (;;) {
        listen();
        if (condition())
            return testing::AssertionSuccess();
        if (timer.elapsed() > longest || program.state() == QProcess::NotRunning)
            return testing::AssertionFailure()
                << "standard error: \"" << errors.toStdString() << "\", standard output: \""
                << output.toStdString() << "\", ";
        ::usleep(1000);
    }
}

void WatchTest::listen()
{
    program.waitForReadyRead(0);
    errors += program.readAllStandardError();
    output += program.readAllStandardOutput();
}
