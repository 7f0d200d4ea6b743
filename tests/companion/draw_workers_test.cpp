// What happens to the workers of `orr draw`, and what the user sees of it.
#include "companion/draw_run.h"

#include <QElapsedTimer>

#include <csignal>

#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class DrawWorkersTest : public DrawTest
{
protected:
    // Whether a process is there.
    static bool isThere(qint64 process) { return ::kill(pid_t(process), 0) == 0; }

    static void expectGone(const QList<qint64> &processes)
    {
        for (const qint64 process : processes) {
            for (int i = 0; i < 2000 && isThere(process); ++i)
                ::usleep(1000);
            EXPECT_FALSE(isThere(process));
        }
    }
};

} // namespace

TEST_F(DrawWorkersTest, end_for_a_drawing_that_takes_too_long)
{
    writeFile(u"b.dot"_s, smallGraph());
    const ProgramRun run = drawMany({u"-K"_s, u"treemap"_s, u"-j"_s, u"1"_s, u"--timeout"_s,
                                     u"0.5"_s, u"good.dot"_s, u"waits.dot"_s, u"b.dot"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors,
              "orr draw: 'waits.dot': took longer than 0.5 s\norr draw: 2 drawn, 1 failed\n");
    EXPECT_EQ(newFiles(), QStringList({u"b.dot"_s, u"b.svg"_s, u"good.svg"_s}));
}

TEST_F(DrawWorkersTest, keep_to_their_memory)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "a sanitizer takes more addresses than any limit allows, so that there is none";
#endif
    QByteArray large = "digraph {";
    for (int i = 0; i < 100'000; ++i)
        large += 'n' + QByteArray::number(i) + " [area=1];\n";
    writeFile(u"large.dot"_s, large + '}');
    const ProgramRun run = drawMany({u"-K"_s, u"treemap"_s, u"-j"_s, u"1"_s, u"--memory"_s, u"24"_s,
                                     u"large.dot"_s, u"good.dot"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "orr draw: 'large.dot': Out of memory\norr draw: 1 drawn, 1 failed\n");
    EXPECT_EQ(newFiles(), QStringList({u"good.svg"_s, u"large.dot"_s}));
}

TEST_F(DrawWorkersTest, that_are_killed_fail_one_drawing)
{
    writeFile(u"b.dot"_s, smallGraph());
    const auto program =
        start({u"-K"_s, u"treemap"_s, u"-j"_s, u"1"_s, u"good.dot"_s, u"waits.dot"_s, u"b.dot"_s});
    const auto pipe = waitForWorker();
    const QList<qint64> workers = workersOf(*program);
    ASSERT_EQ(workers.size(), 1);
    ASSERT_EQ(::kill(pid_t(workers.first()), SIGKILL), 0);
    ASSERT_TRUE(program->waitForFinished());
    EXPECT_EQ(program->exitCode(), 1);
    EXPECT_EQ(program->readAllStandardError(),
              "orr draw: 'waits.dot': the worker was ended by signal 9 (Killed)\n"
              "orr draw: 2 drawn, 1 failed\n");
    EXPECT_EQ(newFiles(), QStringList({u"b.dot"_s, u"b.svg"_s, u"good.svg"_s}));
}

TEST_F(DrawWorkersTest, that_are_killed_leave_no_file)
{
    writeFile(u".orrlayout-abandoned.tmp"_s, "half");
    const auto program = start({u"-K"_s, u"treemap"_s, u"-j"_s, u"1"_s, u"waits.dot"_s});
    const auto pipe = waitForWorker();
    QFile written(path(u".orrlayout-written.tmp"_s));
    ASSERT_TRUE(written.open(QIODevice::WriteOnly));
    const QList<qint64> workers = workersOf(*program);
    ASSERT_EQ(workers.size(), 1);
    ASSERT_EQ(::kill(pid_t(workers.first()), SIGKILL), 0);
    ASSERT_TRUE(program->waitForFinished());
    EXPECT_EQ(newFiles(), QStringList(u".orrlayout-written.tmp"_s));
}

TEST_F(DrawWorkersTest, end_with_the_program)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE("signal " + std::to_string(signal));
        const auto program = start({u"-K"_s, u"treemap"_s, u"-j"_s, u"1"_s, u"good.dot"_s,
                                    u"waits.dot"_s, u"faulty.dot"_s});
        const auto pipe = waitForWorker();
        const QList<qint64> workers = workersOf(*program);
        EXPECT_EQ(workers.size(), 1);
        ASSERT_EQ(::kill(pid_t(program->processId()), signal), 0);
        ASSERT_TRUE(program->waitForFinished());
        EXPECT_EQ(program->exitStatus(), QProcess::CrashExit);
        EXPECT_EQ(program->exitCode(), signal);
        EXPECT_EQ(program->readAllStandardError(),
                  "orr draw: 1 drawn, 0 failed, 2 not begun or not finished\n");
        expectGone(workers);
        EXPECT_EQ(newFiles(), QStringList(u"good.svg"_s));
    }
}

TEST_F(DrawWorkersTest, end_when_the_program_is_killed)
{
    const auto program = start({u"-K"_s, u"treemap"_s, u"-j"_s, u"1"_s, u"waits.dot"_s});
    const auto pipe = waitForWorker();
    const QList<qint64> workers = workersOf(*program);
    ASSERT_EQ(workers.size(), 1);
    ASSERT_EQ(::kill(pid_t(program->processId()), SIGKILL), 0);
    ASSERT_TRUE(program->waitForFinished());
    expectGone(workers);
}

TEST_F(DrawWorkersTest, are_no_more_than_wanted)
{
    const auto program = start({u"-K"_s, u"treemap"_s, u"-j"_s, u"2"_s, u"-d"_s, u"."_s,
                                u"waits.dot"_s, u"good.dot"_s, u"faulty.dot"_s});
    const auto pipe = waitForWorker();
    EXPECT_LE(workersOf(*program).size(), 2);
    ASSERT_EQ(::kill(pid_t(program->processId()), SIGTERM), 0);
    ASSERT_TRUE(program->waitForFinished());
}

TEST_F(DrawWorkersTest, need_not_be_there_for_a_signal_to_end_the_program)
{
    const auto program = start({u"-K"_s, u"bar"_s, u"-o"_s, u"x.svg"_s, u"-"_s});
    ::usleep(200'000); // it waits for standard input, from soon after its start
    ASSERT_EQ(::kill(pid_t(program->processId()), SIGINT), 0);
    ASSERT_TRUE(program->waitForFinished());
    EXPECT_EQ(program->exitStatus(), QProcess::CrashExit);
    EXPECT_EQ(newFiles(), QStringList());
}

// There are not enough descriptors for all of them.
TEST_F(DrawWorkersTest, that_can_not_all_start_leave_the_work_to_the_others)
{
    QStringList names;
    for (int i = 0; i < 60; ++i) {
        names += u"n%1.dot"_s.arg(i);
        writeFile(names.last(), smallGraph());
    }
    const ProgramRun run =
        this->run({.arguments = QStringList{u"draw"_s, u"-K"_s, u"bar"_s, u"-j"_s, u"20"_s} + names,
                   .before = [] {
                       const rlimit few{30, 30};
                       ::setrlimit(RLIMIT_NOFILE, &few);
                   }});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "orr draw: 60 drawn, 0 failed\n");
}

TEST_F(DrawWorkersTest, that_can_not_start_fail_every_drawing)
{
    const ProgramRun run =
        this->run({.arguments = {u"draw"_s, u"-K"_s, u"bar"_s, u"-j"_s, u"1"_s, u"good.dot"_s,
                                 u"faulty.dot"_s},
                   .environment = {{u"FONTCONFIG_FILE"_s, u"/nowhere/fonts.conf"_s}}});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors,
              "orr draw: 'good.dot': Unable to read the configuration of the fonts\n"
              "orr draw: 'faulty.dot': Unable to read the configuration of the fonts\n"
              "orr draw: 0 drawn, 2 failed\n");
}
