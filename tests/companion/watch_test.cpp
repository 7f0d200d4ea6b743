// `orr watch` as a program: options, messages, findings, and how it ends.
#include "companion/watch_run.h"
#include "support/golden.h"

#include <QDir>
#include <QFileInfo>

#include <csignal>

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

// A typing error, and what is said of it.
const QByteArray misspelt = "digraph { a [lable=\"x\" area=1]; }";
constexpr char misspeltFinding[] =
    "a.dot:1:14: warning: unknown attribute 'lable' of a node in treemap; did you mean 'label'? "
    "[unknown-attribute]\n";

} // namespace

TEST_F(WatchTest, draws_what_orrlayout_draws_in_all_formats)
{
    writeFile(u"a.dot"_s, smallGraph());
    start({u"-K"_s, u"treemap"_s, u"-T"_s, u"svg,xdot1.2"_s, u"a.dot"_s});
    EXPECT_TRUE(says("orr watch: 'a.dot': 'a.svg', 'a.xdot1.2' drawn in "));
    for (const QString &format : {u"svg"_s, u"xdot1.2"_s}) {
        const ProgramRun alone =
            run({.arguments = {u"-K"_s, u"treemap"_s, u"-T"_s, format, u"a.dot"_s},
                 .command = QStringLiteral(ORR_LAYOUT_PROGRAM)});
        EXPECT_EQ(fileContent(u"a."_s + format), alone.output);
    }
    end(SIGTERM);
    EXPECT_EQ(output, "");
}

TEST_F(WatchTest, draws_below_a_folder)
{
    ASSERT_TRUE(QDir(path(u"."_s)).mkpath(u"x/y"_s));
    ASSERT_TRUE(QDir(path(u"."_s)).mkdir(u"out"_s));
    writeFile(u"x/y/a.dot"_s, labelled("v1"));
    start({u"-K"_s, u"bar"_s, u"-d"_s, u"out"_s, u"x/y/a.dot"_s});
    EXPECT_TRUE(shows(u"out/x/y/a.svg"_s, "v1"));
}

TEST_F(WatchTest, takes_the_engine_from_the_text_also_for_the_findings)
{
    writeFile(u"a.dot"_s, "digraph { graph [layout=treemap]; a [area=1, areal=2]; }");
    start({u"-o"_s, u"b.svg"_s, u"a.dot"_s});
    EXPECT_TRUE(says("'b.svg' drawn in "));
    EXPECT_TRUE(prints("a.dot:1:46: warning: unknown attribute 'areal' of a node in treemap"));
}

TEST_F(WatchTest, prints_the_findings_as_check_does)
{
    writeFile(u"a.dot"_s, misspelt);
    start({u"-K"_s, u"treemap"_s, u"a.dot"_s});
    EXPECT_TRUE(prints("\n"));
    EXPECT_EQ(output, misspeltFinding);
    EXPECT_EQ(output, run({.arguments = {u"check"_s, u"-K"_s, u"treemap"_s, u"a.dot"_s}}).output);
    EXPECT_TRUE(says(" drawn in "));
    replaceFile(u"a.dot"_s, misspelt + '\n');
    EXPECT_TRUE(prints(misspeltFinding, 2));
}

TEST_F(WatchTest, keeps_the_last_good_drawing_of_a_faulty_input)
{
    writeFile(u"a.dot"_s, labelled("v1"));
    start({u"-K"_s, u"treemap"_s, u"a.dot"_s});
    EXPECT_TRUE(shows(u"a.svg"_s, ">v1<"));
    const QByteArray good = fileContent(u"a.svg"_s);
    writeFile(u"a.dot"_s, "digraph {\n a [\n}\n");
    EXPECT_TRUE(says("orr watch: 'a.dot': Unable to parse dot input\n"));
    EXPECT_TRUE(prints("a.dot:3:1: error: found '}', expected an attribute or ']'; close the list "
                       "ahead of this with ']' [syntax-error]\n"));
    EXPECT_EQ(fileContent(u"a.svg"_s), good);
    writeFile(u"a.dot"_s, labelled("v2"));
    EXPECT_TRUE(shows(u"a.svg"_s, ">v2<"));
}

TEST_F(WatchTest, tells_which_of_several_outputs_fails)
{
    writeFile(u"a.dot"_s, labelled("v1"));
    ASSERT_TRUE(QDir(path(u"."_s)).mkdir(u"a.png"_s));
    start({u"-K"_s, u"treemap"_s, u"-T"_s, u"svg,png"_s, u"a.dot"_s});
    EXPECT_TRUE(says("orr watch: 'a.dot': 'a.png': "));
    EXPECT_TRUE(says("orr watch: 'a.dot': 'a.svg' drawn in "));
}

TEST_F(WatchTest, draws_each_of_several_files_by_itself)
{
    writeFile(u"a.dot"_s, labelled("v1"));
    writeFile(u"b.dot"_s, labelled("w1"));
    start({u"-K"_s, u"treemap"_s, u"a.dot"_s, u"b.dot"_s, u"a.dot"_s});
    EXPECT_TRUE(says(" drawn in ", 2));
    writeFile(u"b.dot"_s, labelled("w2"));
    EXPECT_TRUE(shows(u"b.svg"_s, ">w2<"));
    EXPECT_TRUE(says("'b.svg' drawn in ", 2));
    EXPECT_EQ(drawn(), 3);
}

TEST_F(WatchTest, draws_nothing_anew_for_the_same_bytes)
{
    writeFile(u"a.dot"_s, labelled("v1"));
    writeFile(u"b.dot"_s, labelled("w1"));
    start({u"-K"_s, u"treemap"_s, u"-j"_s, u"1"_s, u"a.dot"_s, u"b.dot"_s});
    EXPECT_TRUE(says(" drawn in ", 2));
    replaceFile(u"a.dot"_s, labelled("v1"));
    ASSERT_EQ(::utimensat(AT_FDCWD, path(u"a.dot"_s).toUtf8().constData(), nullptr, 0), 0);
    // Whatever was to be done about the first one is done when this is drawn.
    replaceFile(u"b.dot"_s, labelled("w2"));
    EXPECT_TRUE(says("'b.svg' drawn in ", 2));
    EXPECT_EQ(drawn(), 3);
}

TEST_F(WatchTest, waits_for_a_file_and_says_so_once)
{
    writeFile(u"b.dot"_s, labelled("w1"));
    start({u"-K"_s, u"treemap"_s, u"a.dot"_s, u"b.dot"_s});
    EXPECT_TRUE(says(" drawn in "));
    writeFile(u"b.dot"_s, labelled("w2"));
    EXPECT_TRUE(shows(u"b.svg"_s, ">w2<"));
    writeFile(u"a.dot"_s, labelled("v1"));
    EXPECT_TRUE(shows(u"a.svg"_s, ">v1<"));
    EXPECT_EQ(errors.count("'a.dot' can't be read: No such file or directory; waiting for it\n"),
              1);
}

TEST_F(WatchTest, waits_for_what_is_no_file)
{
    ASSERT_EQ(::mkfifo(path(u"a.dot"_s).toUtf8().constData(), 0600), 0);
    start({u"-K"_s, u"treemap"_s, u"a.dot"_s});
    EXPECT_TRUE(says("'a.dot' can't be read: it is no regular file; waiting for it\n"));
    replaceFile(u"a.dot"_s, labelled("v1"));
    EXPECT_TRUE(shows(u"a.svg"_s, ">v1<"));
}

TEST_F(WatchTest, writes_no_control_character_of_a_name)
{
    writeFile(u"a\u001b[2J\n.dot"_s, labelled("v1"));
    start({u"-K"_s, u"treemap"_s, u"a\u001b[2J\n.dot"_s, u"\u001b.dot"_s});
    EXPECT_TRUE(says("orr watch: 'a\\x1b[2J\\x0a.dot': 'a\\x1b[2J\\x0a.svg' drawn in "));
    EXPECT_TRUE(says("'\\x1b.dot' can't be read"));
}

TEST_F(WatchTest, says_what_is_wrong_with_its_use)
{
    const auto wrong = [&](const QStringList &arguments, const QByteArray &message) {
        const ProgramRun call = run({.arguments = QStringList{u"watch"_s} + arguments});
        EXPECT_EQ(call.status, 2);
        EXPECT_EQ(call.errors, "orr watch: " + message + "\nTry 'orr watch --help'.\n");
    };
    wrong({}, "an input is missing");
    wrong({u"-o"_s, u"a.svg"_s}, "standard input can't be watched; name a file");
    wrong({u"-o"_s, u"a.svg"_s, u"/dev/stdin"_s}, "standard input can't be watched; name a file");
    wrong({u"-o"_s, u"-"_s, u"a.dot"_s}, "standard output takes one drawing only; name a file");
    wrong({u"a.dot"_s, u"a.gv"_s}, "'a.svg' is the output of both 'a.dot' and 'a.gv'");
    wrong({u"-d"_s, u"none"_s, u"a.dot"_s},
          "'none' can't be written to: No such file or directory");
    wrong({u"--pol"_s, u"a.dot"_s}, "unknown option '--pol'; did you mean '--poll'?");
    wrong({u"--jobs"_s, u"x"_s}, "unknown option '--jobs'");
}

TEST_F(WatchTest, ends_where_findings_can_not_be_printed)
{
    writeFile(u"a.dot"_s, misspelt);
    start({u"-K"_s, u"treemap"_s, u"a.dot"_s}, u"exec \"$0\" \"$@\" >/dev/full"_s);
    ASSERT_TRUE(program.waitForFinished(20'000));
    EXPECT_EQ(program.exitCode(), 2);
    EXPECT_TRUE(program.readAllStandardError().contains(
        "orr watch: standard output can't be written: No space left on device\n"));
}

// The lines behind "Examples:" are commands of a shell, with `orr` in its path.
TEST_F(WatchTest, ends_its_help_with_examples_that_work)
{
    const QByteArray help = run({.arguments = {u"watch"_s, u"--help"_s}}).output;
    const qsizetype examples = help.indexOf("\nExamples:\n");
    ASSERT_GE(examples, 0);
    writeFile(u"areas.dot"_s, smallGraph());
    const QString besides = QFileInfo(QStringLiteral(ORR_PROGRAM)).path();
    for (const QByteArray &example : help.sliced(examples + 11).trimmed().split('\n')) {
        errors.clear();
        start({},
              u"PATH='"_s + besides + u":'$PATH; exec "_s + QString::fromUtf8(example.trimmed()));
        EXPECT_TRUE(says("areas.svg'")) << example.toStdString();
        end(SIGINT);
    }
}
