// What happens to the processes of `orr serve`, to its port, and at its end.
#include "companion/serve_run.h"
#include "support/golden.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>

#include <csignal>

#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class ServeWorkersTest : public ServeTest
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

    // Bytes of the addresses that a process has.
    static rlim_t addressesOf(qint64 process)
    {
        QFile file(u"/proc/%1/statm"_s.arg(process));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().split(' ').constFirst().toULongLong() * rlim_t(::getpagesize());
    }

    // The program, with a page that shows "v1" and workers that do nothing from now on.
    void standStill()
    {
        start({});
        edit("digraph { a [area=1 lable=x label=v1]; }");
        waitForLabel("v1");
        waitFor([](const QJsonObject &one) { return one[u"findings"_s].toArray().size() == 1; });
        ASSERT_TRUE(hasChildren(2));
        for (const qint64 child : children())
            ASSERT_EQ(::kill(pid_t(child), SIGSTOP), 0);
    }

    QJsonObject waitForLabel(const QByteArray &label) const
    {
        return waitFor([&](const QJsonObject &now) {
            return !now[u"page"_s].isNull() && page(now).contains('>' + label + '<');
        });
    }
};

} // namespace

TEST_F(ServeWorkersTest, end_for_a_text_that_takes_too_long)
{
    standStill();
    edit(labelled("v2"));
    const QJsonObject now = waitFor([](const QJsonObject &one) {
        return !one[u"fault"_s].toString().isEmpty()
            && !one[u"findingsFault"_s].toString().isEmpty();
    });
    EXPECT_EQ(now[u"fault"_s], u"took longer than 10 s"_s);
    EXPECT_EQ(now[u"findingsFault"_s], u"the text was not checked: took longer than 10 s"_s);
    EXPECT_EQ(now[u"busy"_s], false);
    EXPECT_TRUE(page(now).contains(">v1<"));
    edit(labelled("v3"));
    waitForLabel("v3");
}

TEST_F(ServeWorkersTest, that_crash_cost_a_message)
{
    start({});
    edit(labelled("v0"));
    waitForLabel("v0");
    waitFor([](const QJsonObject &now) { return !now[u"busy"_s].toBool(); });
    edit(slowGraph(), "flatbubble");
    ASSERT_TRUE(hasChildren(2));
    for (const qint64 child : children())
        ASSERT_EQ(::kill(pid_t(child), SIGKILL), 0);
    const QJsonObject now = waitFor([](const QJsonObject &one) {
        return !one[u"fault"_s].toString().isEmpty()
            && !one[u"findingsFault"_s].toString().isEmpty();
    });
    EXPECT_EQ(now[u"fault"_s], u"the worker was ended by signal 9 (Killed)"_s);
    EXPECT_EQ(now[u"findingsFault"_s],
              u"the text was not checked: the worker was ended by signal 9 (Killed)"_s);
    edit("digraph { a [area=1 lable=x label=v1]; }");
    waitForLabel("v1");
    waitFor([](const QJsonObject &one) {
        return one[u"findings"_s].toArray().size() == 1
            && one[u"findingsFault"_s].toString().isEmpty();
    });
}

// The limit of a worker is lowered from outside: to reach the one that it has takes long.
TEST_F(ServeWorkersTest, that_run_out_of_memory_cost_a_message)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "a sanitizer takes more addresses than any limit allows, so that there is none";
#endif
    start({});
    edit(labelled("v1"));
    waitForLabel("v1");
    waitFor([](const QJsonObject &now) { return !now[u"busy"_s].toBool(); });
    ASSERT_TRUE(hasChildren(2));
    for (const qint64 child : children()) {
        rlimit limit = {.rlim_cur = RLIM_INFINITY, .rlim_max = RLIM_INFINITY};
        for (int i = 0; i < 20'000 && limit.rlim_cur == RLIM_INFINITY; ++i) {
            ASSERT_EQ(::prlimit(pid_t(child), RLIMIT_AS, nullptr, &limit), 0);
            ::usleep(1000); // it may be starting still
        }
        EXPECT_LE(limit.rlim_cur, rlim_t(4) << 30);
        EXPECT_GE(limit.rlim_cur, rlim_t(1) << 30);
        limit.rlim_cur = addressesOf(child) + (24 << 20);
        ASSERT_EQ(::prlimit(pid_t(child), RLIMIT_AS, &limit, nullptr), 0);
    }
    QByteArray large = "digraph {";
    for (int i = 0; i < 100'000; ++i)
        large += 'n' + QByteArray::number(i) + " [area=1];\n";
    edit(large + '}');
    const QJsonObject now =
        waitFor([](const QJsonObject &one) { return !one[u"fault"_s].toString().isEmpty(); });
    EXPECT_EQ(now[u"fault"_s].toString(), u"Out of memory"_s);
    EXPECT_TRUE(page(now).contains(">v1<"));
    edit(labelled("v2"));
    waitForLabel("v2");
}

TEST_F(ServeWorkersTest, are_replaced_while_they_have_nothing_to_do)
{
    start({});
    edit(labelled("v1"));
    waitForLabel("v1");
    ASSERT_TRUE(hasChildren(2));
    for (const qint64 child : children())
        ASSERT_EQ(::kill(pid_t(child), SIGKILL), 0);
    ASSERT_TRUE(hasChildren(0));
    edit(labelled("v2"));
    waitForLabel("v2");
}

// Long before the first text takes too long.
TEST_F(ServeWorkersTest, end_for_a_text_that_the_next_one_overtakes)
{
    standStill();
    edit(labelled("v2"));
    QElapsedTimer timer;
    timer.start();
    edit(labelled("v3"));
    waitForLabel("v3");
    EXPECT_LT(timer.elapsed(), 8000);
}

TEST_F(ServeWorkersTest, end_with_the_program_and_leave_no_file)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE("signal " + std::to_string(signal));
        start({});
        edit(slowGraph(), "flatbubble");
        ASSERT_TRUE(hasChildren(2));
        const QList<qint64> processes = children();
        end(signal);
        expectGone(processes);
        EXPECT_EQ(allFiles(), QStringList());
    }
}

// Ctrl-C is not held up by workers that hear nothing.
TEST_F(ServeWorkersTest, that_stand_still_do_not_hold_up_the_end)
{
    constexpr qint64 patience = 1800; // of 0.3 s for each; a busy machine has three tries
    qint64 elapsed = patience;
    for (int i = 0; i < 3 && elapsed >= patience; ++i) {
        standStill();
        edit(labelled("v2"));
        const QList<qint64> processes = children();
        QElapsedTimer timer;
        timer.start();
        end(SIGINT);
        elapsed = timer.elapsed();
        for (const qint64 process : processes)
            ::kill(pid_t(process), SIGKILL); // one with nothing to do stands still
    }
    EXPECT_LT(elapsed, patience);
}

TEST_F(ServeWorkersTest, end_when_the_program_is_killed)
{
    start({});
    edit(slowGraph(), "flatbubble");
    ASSERT_TRUE(hasChildren(2));
    const QList<qint64> processes = children();
    end(SIGKILL);
    expectGone(processes);
}

TEST_F(ServeWorkersTest, are_no_part_of_a_server_without_a_port)
{
    start({u"--port"_s, u"0"_s});
    const QString taken = QString::number(port());
    const ProgramRun second = run({.arguments = {u"serve"_s, u"--port"_s, taken}});
    EXPECT_EQ(second.status, 2);
    EXPECT_EQ(second.output, "");
    EXPECT_EQ(second.errors,
              "orr serve: port " + taken.toUtf8() + " is taken; --port 0 takes any that is free\n");
    const ProgramRun wrong = run({.arguments = {u"serve"_s, u"--port"_s, u"65536"_s}});
    EXPECT_EQ(wrong.status, 2);
    EXPECT_TRUE(wrong.errors.startsWith("orr serve: --port: '65536' is no whole number"))
        << wrong.errors.toStdString();
}

TEST_F(ServeWorkersTest, take_the_next_port_if_none_was_asked_for)
{
    start({});
    QProcess second;
    second.start(QStringLiteral(ORR_PROGRAM), {u"serve"_s});
    ASSERT_TRUE(second.waitForReadyRead(20'000));
    EXPECT_TRUE(second.readLine().startsWith("http://127.0.0.1:"));
    second.kill();
    second.waitForFinished();
    end(SIGTERM);
    start({});
}
