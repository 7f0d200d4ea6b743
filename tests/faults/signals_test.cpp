// Runs that are ended from outside.
#include "faults/fault_run.h"
#include "support/golden.h"

#include <QElapsedTimer>
#include <QFile>

#include <csignal>
#include <string>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class Signals : public FaultTest
{
protected:
    void SetUp() override
    {
        FaultTest::SetUp();
        QElapsedTimer timer;
        timer.start();
        whole = drawing(graph);
        runTime = timer.elapsed();
    }

    void expectOldOrNew(const QString &when) const
    {
        const QByteArray content = fileContent(output());
        EXPECT_TRUE(content == oldContent || content == whole)
            << content.size() << " bytes of " << whole.size() << ", " << when.toStdString();
    }

    static void send(const QProcess &program, int signal)
    {
        ::kill(static_cast<pid_t>(program.processId()), signal);
    }

    // The program at work, ended by the signal as soon as there is a file that begins so.
    void endBy(int signal, const QStringList &arguments, const QString &beginning) const
    {
        const std::unique_ptr<QProcess> program = start(arguments, graph);
        ASSERT_TRUE(waitForFile(beginning));
        send(*program, signal);
        ASSERT_TRUE(program->waitForFinished());
        EXPECT_EQ(program->exitStatus(), QProcess::CrashExit);
        EXPECT_EQ(program->exitCode(), signal);
    }

    // Waits for a file whose name begins so. False if the program ended without being seen with
    // one.
    bool waitForFileOf(QProcess *program, const QString &beginning) const
    {
        while (!program->waitForFinished(0)) {
            const QStringList names = allFiles();
            for (const QString &name : names) {
                if (name.startsWith(beginning))
                    return true;
            }
        }
        return false;
    }

    const QByteArray graph = largeGraph(3000);
    QByteArray whole;
    qint64 runTime = 0; // milliseconds
};

ORR_FOR_EACH_FORMAT(Signals);

} // namespace

TEST_P(Signals, kill_at_any_time_leaves_the_old_or_the_new)
{
    constexpr int kills = 12;
    for (int i = 0; i < kills; ++i) {
        writeFile(output(), oldContent);
        const std::unique_ptr<QProcess> program = start(arguments(), graph);
        const qint64 when = runTime * 1000 * (i + 1) / kills;
        ::usleep(static_cast<useconds_t>(when));
        send(*program, SIGKILL);
        ASSERT_TRUE(program->waitForFinished());
        expectOldOrNew(u"killed after %1 us"_s.arg(when));
    }
}

// The shortest moment of all: the temporary file is there, and may be about to take the name.
TEST_P(Signals, kill_while_the_file_is_written_leaves_the_old_or_the_new)
{
    const std::unique_ptr<QProcess> program = start(arguments(), graph);
    ASSERT_TRUE(waitForFile(u".orrlayout-"_s) || fileContent(output()) == whole);
    send(*program, SIGKILL);
    ASSERT_TRUE(program->waitForFinished());
    expectOldOrNew(u"killed while it was written"_s);
}

TEST_P(Signals, ended_by_one_the_program_removes_the_file_for_standard_output)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGXCPU}) {
        endBy(signal, toStandardOutput(), u"orr_orrlayout_"_s);
        EXPECT_TRUE(isUntouched()) << "by signal " << signal;
    }
}

TEST_P(Signals, one_that_is_ignored_does_not_end_the_program)
{
    const std::unique_ptr<QProcess> program =
        start(toStandardOutput(), graph, [] { ::signal(SIGHUP, SIG_IGN); });
    ASSERT_TRUE(waitForFile(u"orr_orrlayout_"_s));
    send(*program, SIGHUP);
    ASSERT_TRUE(program->waitForFinished());
    EXPECT_EQ(program->exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program->readAllStandardOutput(), whole);
}

// The file beside the output is there for long only where the drawing streams into it. In other
// formats the signal may come when all is done.
TEST_P(Signals, ended_by_one_the_program_removes_the_file_beside_the_output)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGXCPU}) {
        SCOPED_TRACE("signal " + std::to_string(signal));
        writeFile(output(), oldContent);
        const std::unique_ptr<QProcess> program = start(arguments(), graph);
        if (waitForFileOf(program.get(), u".orrlayout-"_s)) {
            send(*program, signal);
            ASSERT_TRUE(program->waitForFinished());
        }
        const bool isEnded = program->exitStatus() == QProcess::CrashExit;
        EXPECT_EQ(program->exitCode(), isEnded ? signal : 0);
        if (isEnded && fileContent(output()) == oldContent) {
            EXPECT_TRUE(isUntouched());
        } else {
            EXPECT_NE(format(), u"svg"_s) << "was drawn to its end";
            EXPECT_TRUE(fileContent(output()) == whole);
            EXPECT_EQ(allFiles(), QStringList(output()));
        }
    }
}
