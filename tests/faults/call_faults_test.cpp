// Faults at each single call by which the output is written: strace lets the call fail, or sends a
// signal during it.
#include "faults/fault_run.h"
#include "support/golden.h"

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

// What makes a file beside the output, fills it and lets it take the name.
const QStringList writingCalls{u"fchmod"_s, u"write"_s, u"fsync"_s, u"renameat"_s};

class CallFaults : public FaultTest
{
protected:
    void SetUp() override
    {
        FaultTest::SetUp();
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP()
            << "the sanitizers make such calls themselves, to find out what memory is there";
#endif
        const ProgramRun tried =
            run({.arguments = {u"-o"_s, u"/dev/null"_s, u"/bin/true"_s}, .command = u"strace"_s});
        if (tried.status != 0)
            GTEST_SKIP() << "no process can be traced here, with status " << tried.status << ": "
                         << tried.errors.toStdString();
    }

    // The program with the arguments, called by strace with an option of its own. It ends as the
    // program does, with a signal as 128 and its number.
    ProgramRun traced(const QString &option, const QByteArray &graph) const
    {
        const QStringList shell{u"-c"_s, u"strace \"$@\"; exit $?"_s, u"sh"_s};
        const QStringList strace{u"-f"_s,
                                 u"-e"_s,
                                 u"signal=none"_s,
                                 u"-o"_s,
                                 trace(),
                                 u"-e"_s,
                                 u"trace="_s + writingCalls.join(u','),
                                 u"-e"_s,
                                 option};
        // The leak checker of the sanitizers can't work in a process that is traced.
        return run(
            {.arguments = shell + strace + QStringList(QStringLiteral(ORR_PROGRAM)) + arguments(),
             .input = graph,
             .environment = {{u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s}},
             .command = u"/bin/sh"_s});
    }

    // How often the program makes the call in the last run.
    int countOf(const QString &call) const
    {
        int count = 0;
        const QByteArrayList lines = readTestFile(trace()).split('\n');
        for (const QByteArray &line : lines)
            count += line.contains(' ' + call.toLatin1() + '(');
        return count;
    }

    QString trace() const
    {
        return traceFolder.filePath(u"trace"_s);
    }

private:
    QTemporaryDir traceFolder;
};

ORR_FOR_EACH_FORMAT(CallFaults);

} // namespace

TEST_P(CallFaults, one_that_fails_leaves_what_stood_there)
{
    // Several blocks of the output's buffer in SVG.
    const QByteArray graph = largeGraph(3000);
    ASSERT_TRUE(succeeded(traced(u"quiet=all"_s, graph)));
    QList<int> counts;
    for (const QString &call : writingCalls)
        counts.append(countOf(call));
    for (qsizetype i = 0; i < writingCalls.size(); ++i) {
        const QString &call = writingCalls.at(i);
        EXPECT_GE(counts.at(i), 1) << call.toStdString();
        for (int n = 1; n <= counts.at(i); ++n) {
            writeFile(output(), oldContent);
            const QString fault = u"inject=%1:error=ENOSPC:when=%2"_s.arg(call).arg(n);
            SCOPED_TRACE(fault.toStdString());
            EXPECT_TRUE(failedWith(traced(fault, graph),
                                   call == "fchmod"_L1 ? openMessage() : writeMessage()));
            EXPECT_TRUE(isUntouched());
        }
    }
}

TEST_P(CallFaults, signal_during_one_leaves_the_old_or_the_new_and_nothing_else)
{
    const QByteArray whole = drawing(smallGraph());
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGXCPU}) {
        for (const QString &call : writingCalls) {
            writeFile(output(), oldContent);
            const QString fault = u"inject=%1:signal=%2:when=1"_s.arg(call).arg(signal);
            SCOPED_TRACE(fault.toStdString());
            EXPECT_EQ(traced(fault, smallGraph()).status, 128 + signal);
            const bool isRenamed = call == "renameat"_L1;
            EXPECT_TRUE(fileContent(output()) == (isRenamed ? whole : oldContent));
            EXPECT_EQ(allFiles(), QStringList(output()));
        }
    }
}
