// Streams and files that can't be read or written: the message and the status of each.
#include "driver/program_run.h"
#include "support/golden.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Failures = ProgramTest;

const QStringList toStandardOutput{u"-K"_s, u"treemap"_s, u"-T"_s, u"xdot1.2"_s};

// The new process gets the file as one of its standard streams.
std::function<void()> redirected(int descriptor, const char *file, int flags)
{
    return [=] {
        const int opened = ::open(file, flags);
        ::dup2(opened, descriptor);
        ::close(opened);
    };
}

std::function<void()> closed(const QList<int> &descriptors)
{
    return [=] {
        for (const int descriptor : descriptors)
            ::close(descriptor);
    };
}

} // namespace

TEST_F(Failures, missing_input_file)
{
    EXPECT_TRUE(failedWith(
        run({.arguments = toStandardOutput + QStringList(u"missing.dot"_s), .input = smallGraph()}),
        inputFileMessage));
}

TEST_F(Failures, directory_as_input_file)
{
    EXPECT_TRUE(
        failedWith(run({.arguments = toStandardOutput + QStringList(u"."_s)}), inputFileMessage));
}

TEST_F(Failures, input_file_of_no_name)
{
    EXPECT_TRUE(
        failedWith(run({.arguments = toStandardOutput + QStringList(u""_s)}), inputFileMessage));
}

// Ways to be unreadable that hold for the superuser too.
TEST_F(Failures, unreadable_input_file)
{
    writeFile(u"in.dot"_s, smallGraph());
    ASSERT_TRUE(QFile::link(u"loop.dot"_s, path(u"loop.dot"_s)));
    for (const QString &file : {u"in.dot/in.dot"_s, u"loop.dot"_s, u"/proc/self/mem"_s})
        EXPECT_TRUE(
            failedWith(run({.arguments = toStandardOutput + QStringList(file)}), inputFileMessage))
            << file.toStdString();
}

TEST_F(Failures, closed_standard_input)
{
    EXPECT_TRUE(
        failedWith(run({.arguments = toStandardOutput, .before = closed({0})}), inputMessage));
}

TEST_F(Failures, standard_input_that_cannot_be_read)
{
    EXPECT_TRUE(
        failedWith(run({.arguments = toStandardOutput, .before = redirected(0, "/", O_RDONLY)}),
                   inputMessage));
    EXPECT_TRUE(failedWith(
        run({.arguments = toStandardOutput, .before = redirected(0, "/dev/null", O_WRONLY)}),
        inputMessage));
}

TEST_F(Failures, empty_standard_input)
{
    EXPECT_TRUE(failedWith(run({.arguments = toStandardOutput}), parseMessage));
}

TEST_F(Failures, temporary_directory_that_takes_no_file)
{
    writeFile(u"file"_s, "");
    for (const QString &place : {u"/proc"_s, path(u"missing"_s), path(u"file"_s)})
        EXPECT_TRUE(failedWith(run({.arguments = toStandardOutput,
                                    .input = smallGraph(),
                                    .environment = {{u"TMPDIR"_s, place}}}),
                               temporaryFileMessage))
            << place.toStdString();
}

TEST_F(Failures, output_file_in_a_directory_that_is_not_there)
{
    EXPECT_TRUE(failedWith(run({.arguments = {u"-K"_s, u"treemap"_s, u"-o"_s, u"missing/x.dot"_s},
                                .input = smallGraph()}),
                           "Unable to write to file\n"));
}

TEST_F(Failures, output_file_on_a_full_disk)
{
    EXPECT_TRUE(
        failedWith(run({.arguments = toStandardOutput + QStringList{u"-o"_s, u"/dev/full"_s},
                        .input = smallGraph()}),
                   "Unable to write to file\n"));
}

TEST_F(Failures, picture_of_a_drawing_without_an_area)
{
    for (const QString &format : {u"png"_s, u"jpg"_s}) {
        EXPECT_TRUE(failedWith(draw("digraph { }", format, u"flatbubble"_s),
                               "Could not save image to file\n"));
        EXPECT_TRUE(
            failedWith(draw("digraph { graph [xdotversion=\"1.2\", bb=\"0,0,-100,50\"]; }", format),
                       "Could not save image to file\n"));
    }
}

TEST_F(Failures, picture_of_a_drawing_that_never_begins)
{
    EXPECT_TRUE(
        failedWith(draw("digraph { graph [xdotversion=\"1.2\"]; }", u"png"_s), "Draw too large\n"));
}

TEST_F(Failures, closed_standard_output)
{
    EXPECT_TRUE(failedWith(
        run({.arguments = toStandardOutput, .input = smallGraph(), .before = closed({1})}),
        outputMessage));
    EXPECT_EQ(files().size(), 1) << "the temporary file stays";
}

TEST_F(Failures, standard_output_on_a_full_disk)
{
    EXPECT_TRUE(failedWith(run({.arguments = toStandardOutput,
                                .input = smallGraph(),
                                .before = redirected(1, "/dev/full", O_WRONLY)}),
                           outputMessage));
    EXPECT_EQ(files().size(), 1) << "the temporary file stays";
}

TEST_F(Failures, standard_output_that_nobody_reads)
{
    const auto pipeWithoutReader = [] {
        int ends[2];
        if (::pipe(ends) != 0)
            ::_exit(99);
        ::close(ends[0]);
        ::dup2(ends[1], 1);
        ::close(ends[1]);
    };
    EXPECT_TRUE(failedWith(
        run({.arguments = toStandardOutput, .input = smallGraph(), .before = pipeWithoutReader}),
        outputMessage));
}

TEST_F(Failures, standard_output_that_cannot_be_written)
{
    EXPECT_TRUE(failedWith(run({.arguments = toStandardOutput,
                                .input = smallGraph(),
                                .before = redirected(1, "/dev/null", O_RDONLY)}),
                           outputMessage));
}

TEST_F(Failures, closed_streams_that_are_not_needed_do_no_harm)
{
    writeFile(u"in.dot"_s, smallGraph());
    EXPECT_TRUE(
        succeeded(run({.arguments = {u"-K"_s, u"treemap"_s, u"-o"_s, u"out.dot"_s, u"in.dot"_s},
                       .before = closed({0, 1, 2})})));
    EXPECT_EQ(fileContent(u"out.dot"_s), draw(smallGraph()).output);
    EXPECT_EQ(fileContent(u"in.dot"_s), smallGraph());
}

TEST_F(Failures, messages_go_nowhere_but_to_standard_error)
{
    writeFile(u"in.dot"_s, "digraph {");
    const ProgramRun failed =
        run({.arguments = toStandardOutput + QStringList(u"in.dot"_s), .before = closed({0, 2})});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.output, "");
    EXPECT_EQ(fileContent(u"in.dot"_s), "digraph {");
}

// A terminal obeys control characters.
TEST_F(Failures, messages_show_the_control_characters_of_the_input)
{
    for (const QByteArray controls : {"\x1b]0;title\x07", "a\nb\r",
                                      "\x7f\xc2\x9b"
                                      "2J",
                                      "\xc2\x85\x01"}) {
        const QByteArray graph = "digraph { \"" + controls + "\" [uml=spacer row=1000000 col=0]; }";
        const ProgramRun drawn = draw(graph, u"svg"_s, u"umlseq"_s);
        EXPECT_EQ(drawn.status, 1);
        EXPECT_TRUE(drawn.errors.contains("\\x")) << drawn.errors.toStdString();
        const QString shown = QString::fromUtf8(drawn.errors);
        EXPECT_EQ(shown.count(u'\n'), 1);
        for (const QChar c : shown)
            EXPECT_TRUE(c == u'\n' || c.category() != QChar::Other_Control) << shown.toStdString();
    }
}
