// `orr draw` where its surroundings do not take what it writes: streams that are closed or full,
// folders that are not there or read-only.
#include "companion/draw_run.h"

#include <QJsonArray>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

class DrawStreamsTest : public DrawTest
{
protected:
    // Runs a script as root of a file system of its own in the working folder, which goes with it.
    // The program is $0. Nothing where the system does not allow that.
    std::optional<ProgramRun> onFileSystem(const QString &options, const QString &script) const
    {
        const QString mounted = u"mount -t tmpfs -o %1 none . && cd \"$PWD\" || exit 77; "_s;
        const ProgramRun run =
            this->run({.arguments = {u"-m"_s, u"/bin/sh"_s, u"-c"_s, mounted.arg(options) + script,
                                     QStringLiteral(ORR_PROGRAM)},
                       .command = u"unshare"_s});
        if (run.status == 77 || run.errors.startsWith("unshare:"))
            return std::nullopt;
        return run;
    }

    const QString graph = u"echo 'digraph { a [area=1]; }' >good.dot; "_s;
};

} // namespace

TEST_F(DrawStreamsTest, that_hear_no_message_change_nothing_else)
{
    const QByteArray svg = drawnAlone(u"good.dot"_s, u"treemap"_s, u"svg"_s);
    for (const QString &errors : {u"2>&-"_s, u"2>/dev/full"_s, u"2>&1 >/dev/null | true"_s}) {
        SCOPED_TRACE(errors.toStdString());
        const QString piped = errors.contains(u'|') ? u"; exit 1"_s : QString();
        const ProgramRun run =
            shell(u"{ sleep 0.05; \"$0\" draw -K treemap good.dot faulty.dot; echo $? >status; } "_s
                  + errors + piped);
        EXPECT_EQ(run.status, piped.isEmpty() ? 0 : 1);
        EXPECT_EQ(fileContent(u"status"_s), "1\n");
        EXPECT_EQ(fileContent(u"good.svg"_s), svg);
        EXPECT_EQ(newFiles(), QStringList({u"good.svg"_s, u"status"_s}));
        EXPECT_EQ(shell(u"rm good.svg status"_s).status, 0);
    }
}

TEST_F(DrawStreamsTest, that_are_not_needed_may_be_closed)
{
    const ProgramRun run = shell(u"exec \"$0\" draw -K treemap good.dot <&- >&-"_s);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "orr draw: 1 drawn, 0 failed\n");
    EXPECT_EQ(fileContent(u"good.svg"_s), drawnAlone(u"good.dot"_s, u"treemap"_s, u"svg"_s));
}

TEST_F(DrawStreamsTest, all_of_them_closed_leave_the_drawing)
{
    EXPECT_EQ(shell(u"exec \"$0\" draw -K treemap good.dot <&- >&- 2>&-"_s).status, 0);
    EXPECT_EQ(fileContent(u"good.svg"_s), drawnAlone(u"good.dot"_s, u"treemap"_s, u"svg"_s));
    EXPECT_EQ(newFiles(), QStringList(u"good.svg"_s));
}

TEST_F(DrawStreamsTest, closed_that_the_drawing_is_for_are_told)
{
    const ProgramRun output = shell(u"exec \"$0\" draw -K treemap -o - good.dot >&-"_s);
    EXPECT_EQ(output.status, 2);
    EXPECT_TRUE(
        output.errors.startsWith("orr draw: standard output can't be written: it is closed\n"))
        << output.errors.toStdString();
    const ProgramRun input = shell(u"exec \"$0\" draw -K treemap -o x.svg - <&-"_s);
    EXPECT_EQ(input.status, 2);
    EXPECT_TRUE(input.errors.startsWith("orr draw: standard input can't be read: it is closed\n"));
    const ProgramRun jobs = shell(u"exec \"$0\" draw --jobs - <&-"_s);
    EXPECT_EQ(jobs.status, 2);
    EXPECT_TRUE(jobs.errors.startsWith("orr draw: standard input can't be read: it is closed\n"));
    EXPECT_EQ(newFiles(), QStringList());
}

// The pipe of the jobs stays open: it is the answers that nobody reads.
TEST_F(DrawStreamsTest, whose_reader_is_gone_end_the_jobs)
{
    const QString jobs =
        u"{ sleep 0.1; echo '{\"in\":\"good.dot\"}'; i=0; until test -e status; do "
        "i=$((i+1)); test $i -lt 400 || exit; sleep 0.05; done; touch told; }"_s;
    const QString drawing = u"{ \"$0\" draw -K treemap --jobs - 2>errors; echo $? >status; }"_s;
    shell(jobs + u" | "_s + drawing + u" | true"_s);
    EXPECT_TRUE(newFiles().contains(u"told"_s)) << "it waits for further jobs";
    EXPECT_EQ(fileContent(u"status"_s), "2\n");
    EXPECT_TRUE(fileContent(u"errors"_s)
                    .startsWith("orr draw: standard output can't be written: Broken pipe\n"));
}

TEST_F(DrawStreamsTest, that_are_full_end_the_jobs)
{
    const ProgramRun run =
        shell(u"echo '{\"in\":\"good.dot\"}' | \"$0\" draw -K treemap --jobs - >/dev/full"_s);
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(run.errors.startsWith(
        "orr draw: standard output can't be written: No space left on device\n"));
}

// As bash and others hand on what a command writes: an open descriptor by its name.
TEST_F(DrawStreamsTest, beyond_the_standard_ones_are_the_workers_too)
{
    const ProgramRun run =
        shell(u"exec 7<good.dot; exec \"$0\" draw -K treemap -o x.svg /dev/fd/7"_s);
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(fileContent(u"x.svg"_s), drawnAlone(u"good.dot"_s, u"treemap"_s, u"svg"_s));
}

TEST_F(DrawStreamsTest, and_folders_of_jobs_that_are_not_there_fail_those)
{
    const ProgramRun run = drawMany({u"-K"_s, u"treemap"_s, u"--jobs"_s, u"-"_s, u"-j"_s, u"1"_s},
                                    "{\"in\":\"good.dot\",\"out\":\"no/where.svg\"}\n"
                                    "{\"in\":\"good.dot\",\"out\":\"x.svg\"}\n");
    EXPECT_EQ(run.status, 1);
    const QList<QJsonObject> answers = jsonLines(run.output);
    ASSERT_EQ(answers.size(), 2);
    EXPECT_EQ(answers[0][u"drawings"_s][0][u"message"_s],
              u"Unable to open file; its folder: No such file or directory"_s);
    EXPECT_EQ(answers[1][u"status"_s], u"drawn"_s);
    EXPECT_EQ(newFiles(), QStringList(u"x.svg"_s));
}

TEST_F(DrawStreamsTest, and_folders_that_are_read_only_are_told)
{
    const auto beside = onFileSystem(
        u"size=64k"_s,
        graph + u"mount -o remount,ro . && \"$0\" draw -K treemap good.dot; echo $?; ls -A"_s);
    if (!beside)
        GTEST_SKIP() << "no file system can be mounted here";
    EXPECT_EQ(beside->output, "1\ngood.dot\n");
    EXPECT_EQ(beside->errors,
              "orr draw: 'good.dot': Unable to open file; its folder: Read-only file system\n"
              "orr draw: 0 drawn, 1 failed\n");
    const auto below = onFileSystem(
        u"size=64k"_s,
        graph + u"mkdir out; mount -o remount,ro . && \"$0\" draw -K treemap -d out good.dot"_s);
    ASSERT_TRUE(below);
    EXPECT_EQ(below->status, 2);
    EXPECT_TRUE(
        below->errors.startsWith("orr draw: 'out' can't be written to: Read-only file system\n"));
}

TEST_F(DrawStreamsTest, and_a_disk_without_room_for_the_notes_leave_the_drawings)
{
    const auto run = onFileSystem(u"nr_inodes=4,size=1m"_s, // the folder, input, drawing, notes
                                  graph
                                      + u"\"$0\" draw --changed -K treemap good.dot; echo $?; "
                                        "mkdir x; rm .orr-draw-notes good.svg; mkdir y; "
                                        "\"$0\" draw --changed -K treemap good.dot; echo $?; "
                                        "ls -A"_s);
    if (!run)
        GTEST_SKIP() << "no file system can be mounted here";
    EXPECT_EQ(run->output, "0\n0\ngood.dot\ngood.svg\ny\n");
    EXPECT_TRUE(run->errors.contains("orr draw: the notes for --changed can't be written\n"))
        << run->errors.toStdString();
}
