// What happens to the processes of `orr watch`, and what the user sees of it.
#include "companion/watch_run.h"
#include "support/golden.h"

#include <QElapsedTimer>
#include <QFile>

#include <csignal>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class WatchWorkersTest : public WatchTest
{
protected:
    static void expectGone(const QList<qint64> &processes)
    {
        for (const qint64 process : processes) {
            for (int i = 0; i < 20'000 && ::kill(pid_t(process), 0) == 0; ++i)
                ::usleep(1000);
            EXPECT_NE(::kill(pid_t(process), 0), 0);
        }
    }

    // The processor time of a process so far, in ticks of the system; 0 if there is none of it.
    static qint64 ticksOf(qint64 process)
    {
        QFile file(u"/proc/%1/stat"_s.arg(process));
        if (!file.open(QIODevice::ReadOnly))
            return 0;
        // Behind the name, which may hold anything, come the state and ten more numbers.
        const QByteArray status = file.readAll();
        const QByteArrayList numbers = status.sliced(status.lastIndexOf(')') + 2).split(' ');
        return numbers.value(11).toLongLong() + numbers.value(12).toLongLong();
    }

    // Waits until it has so many processes: workers and checks.
    testing::AssertionResult hasChildren(qsizetype count) const
    {
        QElapsedTimer timer;
        timer.start();
        while (children().size() != count) {
            if (timer.elapsed() > 20'000)
                return testing::AssertionFailure() << children().size() << " processes";
            ::usleep(1000);
        }
        return testing::AssertionSuccess();
    }
};

// The others are copies of the program, which check.
bool isWorker(qint64 process)
{
    QFile call(u"/proc/%1/cmdline"_s.arg(process));
    return call.open(QIODevice::ReadOnly) && call.readAll().split('\0').contains("--as-worker");
}

} // namespace

TEST_F(WatchWorkersTest, end_for_a_drawing_that_takes_too_long)
{
    writeFile(u"a.dot"_s, labelled("v1"));
    start({u"-K"_s, u"treemap"_s, u"-j"_s, u"1"_s, u"--timeout"_s, u"0.1"_s, u"a.dot"_s});
    ASSERT_TRUE(shows(u"a.svg"_s, ">v1<"));
    writeFile(u"a.dot"_s, slowGraph());
    EXPECT_TRUE(says("orr watch: 'a.dot': took longer than 0.1 s\n"));
    EXPECT_TRUE(shows(u"a.svg"_s, ">v1<"));
    writeFile(u"a.dot"_s, labelled("v2"));
    EXPECT_TRUE(shows(u"a.svg"_s, ">v2<"));
}

TEST_F(WatchWorkersTest, end_for_a_drawing_that_the_next_one_overtakes)
{
    writeFile(u"a.dot"_s, slowGraph());
    writeFile(u"b.dot"_s, slowGraph());
    start({u"-K"_s, u"flatbubble"_s, u"-j"_s, u"2"_s, u"a.dot"_s, u"b.dot"_s});
    ASSERT_TRUE(hasChildren(4));
    for (const QString &name : {u"a"_s, u"b"_s}) {
        writeFile(name + u".dot"_s, labelled("v1"));
        EXPECT_TRUE(
            says("orr watch: '" + name.toUtf8() + ".dot': has changed before it was drawn\n"));
        EXPECT_TRUE(shows(name + u".svg"_s, ">v1<"));
    }
}

TEST_F(WatchWorkersTest, that_stand_still_are_replaced)
{
    writeFile(u"a.dot"_s, labelled("v1"));
    start({u"-K"_s, u"treemap"_s, u"-j"_s, u"1"_s, u"--timeout"_s, u"0.5"_s, u"a.dot"_s});
    ASSERT_TRUE(says(" drawn in "));
    for (const qint64 child : children())
        ::kill(pid_t(child), SIGSTOP);
    writeFile(u"a.dot"_s, labelled("v2"));
    EXPECT_TRUE(says("'a.dot': took longer than 0.5 s\n"));
    writeFile(u"a.dot"_s, labelled("v3"));
    EXPECT_TRUE(shows(u"a.svg"_s, ">v3<"));
}

TEST_F(WatchWorkersTest, that_crash_fail_one_drawing)
{
    writeFile(u"a.dot"_s, labelled("v0"));
    start({u"-K"_s, u"flatbubble"_s, u"-j"_s, u"1"_s, u"a.dot"_s});
    ASSERT_TRUE(says(" drawn in "));
    ASSERT_TRUE(hasChildren(1));
    const qint64 worker = children().constFirst();
    const qint64 drawn = ticksOf(worker);
    replaceFile(u"a.dot"_s, slowGraph());
    ASSERT_TRUE(hasChildren(2));
    // One that is killed before it draws would be replaced, and nothing said.
    ASSERT_TRUE(waitFor([&] { return ticksOf(worker) > drawn + 10; }));
    for (const qint64 child : children())
        ASSERT_EQ(::kill(pid_t(child), SIGKILL), 0);
    EXPECT_TRUE(says("'a.dot': the worker was ended by signal 9 (Killed)\n"));
    EXPECT_TRUE(says("'a.dot': the check was ended by signal 9 (Killed)\n"));
    writeFile(u"a.dot"_s, labelled("v1"));
    EXPECT_TRUE(shows(u"a.svg"_s, ">v1<"));
}

TEST_F(WatchWorkersTest, end_with_the_program_and_leave_no_file)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE("signal " + std::to_string(signal));
        writeFile(u"a.dot"_s, slowGraph());
        start({u"-K"_s, u"treemap"_s, u"-j"_s, u"1"_s, u"a.dot"_s});
        ASSERT_TRUE(hasChildren(2));
        const QList<qint64> processes = children();
        end(signal);
        expectGone(processes);
        EXPECT_EQ(allFiles(), QStringList(u"a.dot"_s));
    }
}

TEST_F(WatchWorkersTest, end_when_the_program_is_killed)
{
    writeFile(u"a.dot"_s, slowGraph());
    start({u"-K"_s, u"flatbubble"_s, u"-j"_s, u"1"_s, u"a.dot"_s});
    ASSERT_TRUE(hasChildren(2));
    const QList<qint64> processes = children();
    end(SIGKILL);
    expectGone(processes);
}

TEST_F(WatchWorkersTest, are_one_for_all_that_is_drawn)
{
    writeFile(u"a.dot"_s, labelled("v0"));
    start({u"-K"_s, u"treemap"_s, u"-j"_s, u"1"_s, u"a.dot"_s});
    QList<qint64> worker;
    for (int i = 1; i < 10; ++i) {
        const QByteArray label = 'v' + QByteArray::number(i);
        writeFile(u"a.dot"_s, labelled(label));
        ASSERT_TRUE(shows(u"a.svg"_s, '>' + label + '<'));
        QList<qint64> now = children();
        now.removeIf([](qint64 process) { return !isWorker(process); });
        if (worker.isEmpty())
            worker = now;
        EXPECT_EQ(now, worker);
    }
}
