// Times of builds: ninja's log, and what clang spends its time on.
#include "companion/import/builds/compile_trace.h"
#include "companion/import/builds/ninja_import.h"
#include "import/told_tree.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;
using namespace ORR::Testing;
using namespace Qt::StringLiterals;

namespace {

std::string toldBuild(const QByteArray &bytes,
                      const ImportOptions &options = {.engine = u"treemap"_s})
{
    return toldTree(readBytes(readNinja, bytes, options));
}

std::string toldLog(const QByteArray &entries,
                    const ImportOptions &options = {.engine = u"treemap"_s})
{
    return toldBuild("# ninja log v5\n" + entries, options);
}

std::string toldTrace(const QByteArray &events,
                      const ImportOptions &options = {.engine = u"treemap"_s})
{
    return toldBuild(R"({"traceEvents": [)" + events + "]}", options);
}

// An event that lasts from one second to another.
QByteArray eventOf(const char *name, int start, int end, const char *detail = "")
{
    return QStringLiteral(R"({"ph": "X", "name": "%1", "ts": %2e6, "dur": %3e6,)"
                          R"( "args": {"detail": "%4"}})")
        .arg(QLatin1StringView(name))
        .arg(start)
        .arg(end - start)
        .arg(QLatin1StringView(detail))
        .toUtf8();
}

std::string kindNumber(const char *name)
{
    return " #" + std::to_string(compileKinds().indexOf(QLatin1StringView(name)));
}

} // namespace

TEST(NinjaImport, has_the_time_of_each_output)
{
    EXPECT_EQ(toldLog("0\t1500\t7\tsrc/CMakeFiles/x.dir/a.o\tab\n1500\t1600\t8\tbin/x\tcd\n"),
              "src>x>a.o 1.5\nbin>x 0.1\n");
}

TEST(NinjaImport, counts_the_newest_entry_of_an_output)
{
    EXPECT_EQ(toldLog("0\t9000\t1\ta\tab\n0\t3000\t1\tb\tcd\n0\t1000\t2\ta\tab\n"), "a 1\nb 3\n");
}

TEST(NinjaImport, counts_a_step_with_several_outputs_once)
{
    EXPECT_EQ(toldLog("0\t9000\t1\ta\tab\n0\t9000\t1\tb\tab\n1\t9000\t1\tc\tab\n"),
              "a 9\nc 8.999\n");
}

TEST(NinjaImport, has_no_time_below_zero)
{
    EXPECT_EQ(toldLog("9\t0\t1\ta\tab\n0\t1000\t1\tb\tcd\n"), "b 1\n");
    EXPECT_EQ(toldLog("9\t0\t1\ta\tab\n"), "no step in it took a time");
    const ImportResult result =
        readBytes(readNinja, "# ninja log v5\n0\t7\t1\ta\tab\n9\t0\t1\tb\tcd\n9\t8\t1\tc\tef\n");
    ASSERT_EQ(result.notes.size(), 1);
    EXPECT_EQ(result.notes[0].place.line, 3);
    EXPECT_EQ(result.notes[0].sentence,
              u"steps that end before they begin count as none: 2 of them"_s);
}

TEST(NinjaImport, tells_times_beyond_double)
{
    const QByteArray huge(400, '9');
    EXPECT_NE(toldLog("0\t1\t1\tb\tcd\n0\t" + huge + "\t1\ta\tab\n").find("is no entry of a log"),
              std::string::npos);
}

TEST(NinjaImport, has_bars_by_folder_or_output)
{
    const QByteArray entries = "0\t1000\t1\tx/a.o\tab\n0\t2000\t1\tx/b.o\tcd\n0\t500\t1\tc\tef\n";
    EXPECT_EQ(toldLog(entries, {.engine = u"bar"_s}), "x 3\n. 0.5\n");
    EXPECT_EQ(toldLog(entries, {.engine = u"bar"_s, .by = "output"}), "x/a.o 1\nx/b.o 2\nc 0.5\n");
    EXPECT_EQ(toldLog(entries, {.engine = u"bar"_s, .by = "x"}),
              "--by can be folder or output for a log, not 'x'");
}

TEST(NinjaImport, tells_the_line_that_is_broken)
{
    const std::string advice =
        " is no entry of a log: start, end, time, output and hash between tabs";
    EXPECT_EQ(toldLog("0\t1\t1\ta\n"), "2: '0\t1\t1\ta'" + advice);
    EXPECT_EQ(toldLog("0\tx\t1\ta\tab\n"), "2: '0\tx\t1\ta\tab'" + advice);
    EXPECT_EQ(toldLog("0\t1\t1\ta\tab\tcd\n"), "2: '0\t1\t1\ta\tab\tcd'" + advice);
    EXPECT_EQ(toldLog("0\t1\t1\t\tab\n"), "2: '0\t1\t1\t\tab'" + advice);
}

TEST(NinjaImport, tells_a_version_that_is_not_known)
{
    EXPECT_EQ(toldBuild("# ninja log v4\n"),
              "1: '# ninja log v4' tells of a version that isn't known; versions 5 to 7 are");
    EXPECT_EQ(toldBuild("hello\n"),
              "1: 'hello' is not how a log of ninja begins: '# ninja log v5'");
    EXPECT_EQ(toldBuild(""), "it is empty");
}

TEST(NinjaImport, reads_a_log_of_ninja)
{
    const ImportResult result = readBytes(readNinja, dataFile(u"ninja/ninja_log"_s));
    ASSERT_TRUE(result.picture) << qPrintable(toldFault(result));
    EXPECT_NE(toldTree(result).find("src>graph>orr_graph>decimal.cpp.o 2.699\n"),
              std::string::npos);
}

TEST(CompileTrace, has_the_time_of_events_beside_those_within)
{
    EXPECT_EQ(toldTrace(eventOf("Source", 1, 4, "/usr/include/x86_64-linux-gnu/qt6/b.h") + ','
                        + eventOf("ExecuteCompiler", 0, 10) + ',' + eventOf("Source", 0, 5, "a.h")),
              "ExecuteCompiler 5" + kindNumber("other") + "\nExecuteCompiler>a.h 2"
                  + kindNumber("Source (headers)") + "\nExecuteCompiler>a.h>qt6/b.h 3"
                  + kindNumber("Source (headers)") + '\n');
}

TEST(CompileTrace, joins_events_of_one_name_but_not_of_several_kinds)
{
    EXPECT_EQ(toldTrace(eventOf("InstantiateClass", 0, 1, "A<int>") + ','
                        + eventOf("InstantiateClass", 1, 3, "A<char>") + ','
                        + eventOf("ParseClass", 3, 7, "A")),
              "A 3" + kindNumber("InstantiateClass") + "\nA (ParseClass) 4"
                  + kindNumber("ParseClass") + '\n');
}

TEST(CompileTrace, has_passes_of_the_kind_around_them)
{
    EXPECT_EQ(toldTrace(eventOf("Optimizer", 0, 3) + ',' + eventOf("NewPass", 1, 2)),
              "Optimizer 2" + kindNumber("Optimizer") + "\nOptimizer>NewPass 1"
                  + kindNumber("Optimizer") + '\n');
}

TEST(CompileTrace, cuts_off_what_is_longer_than_what_is_around_it)
{
    EXPECT_EQ(toldTrace(eventOf("Frontend", 0, 4) + ',' + eventOf("Source", 3, 9, "a.h")),
              "Frontend 3" + kindNumber("other") + "\nFrontend>a.h 1"
                  + kindNumber("Source (headers)") + '\n');
}

TEST(CompileTrace, has_events_with_a_beginning_and_an_end)
{
    EXPECT_EQ(toldTrace(R"({"ph": "b", "cat": "Source", "id": 0, "name": "Source", "ts": 0,)"
                        R"( "args": {"detail": "a.h"}},)"
                        R"({"ph": "e", "cat": "Source", "id": 0, "name": "Source", "ts": 2e6},)"
                        R"({"ph": "e", "cat": "Source", "id": 9, "name": "Source", "ts": 3e6},)"
                        R"({"ph": "M", "name": "process_name"})"),
              "a.h 2" + kindNumber("Source (headers)") + '\n');
}

TEST(CompileTrace, passes_over_sums)
{
    EXPECT_EQ(toldTrace(eventOf("Frontend", 0, 1) + ',' + eventOf("Total Frontend", 0, 9)),
              "Frontend 1" + kindNumber("other") + '\n');
}

TEST(CompileTrace, has_several_inputs_below_their_names)
{
    const QByteArray trace = R"({"traceEvents": [)" + eventOf("Frontend", 0, 1) + "]}";
    EXPECT_EQ(toldTree(readAll(readNinja, {trace, trace})),
              "input>Frontend 1" + kindNumber("other") + "\ninput1>Frontend 1" + kindNumber("other")
                  + '\n');
}

TEST(CompileTrace, has_bars_by_kind)
{
    EXPECT_EQ(toldTrace(eventOf("Source", 0, 4, "a.h") + ',' + eventOf("Source", 1, 2, "b.h") + ','
                            + eventOf("Backend", 4, 5),
                        {.engine = u"bar"_s}),
              "Source (headers) 4" + kindNumber("Source (headers)") + "\nBackend 1"
                  + kindNumber("Backend") + '\n');
}

TEST(CompileTrace, tells_the_event_that_is_broken)
{
    const std::string place = "@17 $.traceEvents[0]: ";
    EXPECT_EQ(toldTrace(R"({"ph": "X", "dur": 1})"), place + "an event needs its time in \"ts\"");
    EXPECT_EQ(toldTrace(R"({"ph": "X", "ts": 1, "dur": -1})"),
              place + "an event needs a duration of 0 or above in \"dur\"");
    EXPECT_EQ(toldTrace(R"({"ph": "X", "ts": 1e308, "dur": "1e999"})"),
              place + "an event needs a duration of 0 or above in \"dur\"");
    EXPECT_EQ(toldTrace(R"({"ph": "X", "ts": 1, "dur": 1e999})"),
              "@45 $.traceEvents[0].dur: a number is beyond what can be held");
    EXPECT_EQ(toldTrace(R"({"ph": "X", "ts": 1, "dur": 1, "name": 7})"),
              "@56 $.traceEvents[0].name: a string is expected here, and this is a number");
    EXPECT_EQ(toldTrace("7"),
              "@17 $.traceEvents[0]: an object is expected here, and this is a number");
    EXPECT_EQ(toldTrace("", {.engine = u"bar"_s, .by = "output"}),
              "--by is for logs, and this is a trace");
    EXPECT_EQ(toldBuild(R"({"traceEvents": 1})"), "@0 $: there are no \"traceEvents\"");
    EXPECT_EQ(toldTrace(""), "@16 $.traceEvents: none of these events has a duration");
}

TEST(CompileTrace, may_be_a_bare_array)
{
    const QByteArray events = '[' + eventOf("Source", 0, 4, "a.h") + ']';
    EXPECT_EQ(likenessOfNinja(events), 100);
    EXPECT_EQ(toldBuild(events), "a.h 4" + kindNumber("Source (headers)") + '\n');
    EXPECT_EQ(likenessOfNinja("[{\"a\": 1}]"), 0);
}

TEST(CompileTrace, of_clang_has_all_its_time)
{
    const QByteArray trace = dataFile(u"ninja/decimal.json"_s);
    const ImportResult result = readBytes(readNinja, trace);
    ASSERT_TRUE(result.picture) << qPrintable(toldFault(result));
    const qsizetype name = trace.indexOf("\"name\":\"ExecuteCompiler\"");
    const qsizetype number = trace.lastIndexOf("\"dur\":", name) + 6;
    const double whole = trace.sliced(number, name - number - 1).toDouble();
    EXPECT_GT(whole, 1e6);
    EXPECT_NEAR(wholeWeight(result), whole / 1e6, 1e-3);
}

TEST(NinjaImport, knows_its_formats)
{
    for (const QString &name : {u"ninja_log"_s, u"decimal.json"_s})
        EXPECT_EQ(likenessOfNinja(dataFile("ninja/"_L1 + name).first(2000)), 100)
            << qPrintable(name);
    for (const char *text : {"", "digraph {}", "{\"resourceSpans\": []}", "# log"})
        EXPECT_EQ(likenessOfNinja(text), 0) << text;
}
