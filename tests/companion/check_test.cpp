// `orr check` as a program.
#include "companion/sarif_schema.h"
#include "driver/program_run.h"
#include "support/golden.h"

#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

constexpr char chain[] = "digraph {\n\ta -> b -> c;\n}\n";

class CheckTest : public ProgramTest
{
protected:
    void SetUp() override
    {
        writeFile(u"good.dot"_s, smallGraph());
        writeFile(u"faulty.dot"_s, "digraph {\n  a [\n}\n");
    }

    ProgramRun check(const QStringList &arguments, const QByteArray &input = {}) const
    {
        return run({.arguments = QStringList{u"check"_s} + arguments, .input = input});
    }

    // A shell runs the command with the program as $0.
    ProgramRun shell(const QString &command) const
    {
        return run(
            {.arguments = {u"-c"_s, command, QStringLiteral(ORR_PROGRAM)}, .command = u"sh"_s});
    }

    // The program with a terminal of its own as standard output.
    ProgramRun onTerminal(const QStringList &arguments,
                          const QList<QPair<QString, QString>> &environment) const
    {
        const QString python =
            u"import os, pty, sys; sys.exit(os.waitstatus_to_exitcode(pty.spawn(sys.argv[1:])))"_s;
        return run(
            {.arguments =
                 QStringList{u"-c"_s, python, QStringLiteral(ORR_PROGRAM), u"check"_s} + arguments,
             .environment = environment,
             .command = u"python3"_s});
    }
};

} // namespace

TEST_F(CheckTest, says_nothing_of_a_good_text)
{
    for (const QStringList &arguments :
         {QStringList{u"good.dot"_s}, {u"-K"_s, u"treemap"_s, u"good.dot"_s}}) {
        const ProgramRun run = check(arguments);
        EXPECT_TRUE(succeeded(run));
        EXPECT_EQ(run.output, "");
    }
}

TEST_F(CheckTest, reads_standard_input_without_a_file_and_for_a_dash)
{
    for (const QStringList &arguments : {QStringList{}, {u"-"_s}}) {
        EXPECT_TRUE(succeeded(check(arguments, smallGraph())));
        const ProgramRun run = check(arguments, "digraph {");
        EXPECT_EQ(run.status, 1);
        EXPECT_TRUE(run.output.startsWith("<stdin>:1:10: error: ")) << run.output.toStdString();
        EXPECT_EQ(run.output.count('\n'), 1);
    }
}

TEST_F(CheckTest, tells_the_files_in_the_order_given)
{
    writeFile(u"a.dot"_s, "digraph");
    const ProgramRun run = check({u"faulty.dot"_s, u"good.dot"_s, u"a.dot"_s});
    EXPECT_EQ(run.status, 1);
    const QList<QByteArray> lines = run.output.split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines[0].startsWith("faulty.dot:3:1: error: ")) << lines[0].toStdString();
    EXPECT_TRUE(lines[1].startsWith("a.dot:1:8: error: ")) << lines[1].toStdString();
}

TEST_F(CheckTest, says_the_same_on_every_run)
{
    const QStringList arguments{u"-K"_s, u"q"_s, u"faulty.dot"_s, u"good.dot"_s};
    for (const QString &format : {u"text"_s, u"json"_s, u"sarif"_s}) {
        const QStringList call = QStringList{u"--format"_s, format} + arguments;
        const ProgramRun first = check(call);
        EXPECT_EQ(first.status, 1);
        EXPECT_EQ(check(call).output, first.output);
    }
}

TEST_F(CheckTest, checks_the_others_where_a_file_can_not_be_read)
{
    const ProgramRun run = check({u"missing.dot"_s, u"."_s, u"faulty.dot"_s});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.errors,
              "orr check: 'missing.dot' can't be read: No such file or directory\n"
              "orr check: '.' can't be read: Is a directory\n");
    EXPECT_TRUE(run.output.startsWith("faulty.dot:3:1: error: "));
    EXPECT_EQ(check({u"missing.dot"_s, u"good.dot"_s}).status, 2);
}

TEST_F(CheckTest, knows_an_unknown_engine_and_the_nearest)
{
    const ProgramRun run = check({u"-K"_s, u"treemp"_s, u"good.dot"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output,
              "good.dot: error: unknown engine 'treemp'; did you mean 'treemap'? "
              "[unknown-engine]\n");
    EXPECT_TRUE(check({u"-K"_s, u"q"_s, u"good.dot"_s}).output.contains("gftree, gfdecl"));
    EXPECT_TRUE(succeeded(check({u"-K"_s, u"TreeMap"_s, u"good.dot"_s})));
}

TEST_F(CheckTest, asks_for_no_engine_where_the_text_has_its_layout)
{
    const QByteArray laidOut = "digraph { graph [xdotversion=\"1.2\" bb=\"0,0,9,9\"]; }";
    EXPECT_TRUE(succeeded(check({u"-K"_s, u"q"_s}, laidOut)));
}

TEST_F(CheckTest, takes_any_name_of_a_file)
{
    for (const QString &name : {u"{}"_s, u"[a]"_s, u"a,b"_s, u"%%"_s, u"ü ö"_s, u"a=b"_s}) {
        writeFile(name, smallGraph());
        EXPECT_TRUE(succeeded(check({name}))) << name.toStdString();
    }
    for (const QString &name : {u"-x"_s, u"--format"_s}) {
        writeFile(name, smallGraph());
        EXPECT_TRUE(succeeded(check({u"--"_s, name}))) << name.toStdString();
    }
    const ProgramRun run = shell(u"name=$(printf '\\377.dot'); echo 'digraph' >\"$name\"; "
                                 "\"$0\" check \"$name\"; status=$?; rm \"$name\"; exit $status"_s);
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.output.startsWith("\\xff.dot:")) << run.output.toStdString();
}

TEST_F(CheckTest, refuses_to_read_standard_input_twice)
{
    const ProgramRun run = check({u"-"_s, u"good.dot"_s, u"-"_s}, smallGraph());
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(run.errors.startsWith("orr check: standard input can be read once only\n"));
}

TEST_F(CheckTest, tells_where_its_streams_do_not_work)
{
    EXPECT_EQ(shell(u"exec \"$0\" check <&-"_s).errors,
              "orr check: standard input can't be read: it is closed\n");
    const ProgramRun full = shell(u"exec \"$0\" check faulty.dot >/dev/full"_s);
    EXPECT_EQ(full.status, 2);
    EXPECT_EQ(full.errors,
              "orr check: standard output can't be written: No space left on device\n");
    EXPECT_EQ(shell(u"exec \"$0\" check faulty.dot >&-"_s).status, 2);
    EXPECT_EQ(shell(u"exec \"$0\" check faulty.dot 2>&-"_s).status, 1);
}

TEST_F(CheckTest, writes_json)
{
    const ProgramRun run = check({u"--format"_s, u"json"_s, u"good.dot"_s, u"faulty.dot"_s});
    EXPECT_EQ(run.status, 1);
    const QJsonObject json = QJsonDocument::fromJson(run.output).object();
    EXPECT_EQ(json[u"errors"_s], 1);
    ASSERT_EQ(json[u"files"_s].toArray().size(), 2);
    EXPECT_EQ(json[u"files"_s][1][u"findings"_s][0][u"line"_s], 3);
    EXPECT_EQ(check({u"--format=json"_s, u"good.dot"_s}).status, 0);
}

TEST_F(CheckTest, writes_sarif_that_is_valid)
{
    for (const QStringList &files :
         {QStringList{u"good.dot"_s}, {u"-K"_s, u"q"_s, u"faulty.dot"_s, u"good.dot"_s}}) {
        const ProgramRun run = check(QStringList{u"--format"_s, u"sarif"_s} + files);
        EXPECT_EQ(sarifFaults(run.output), "valid\n");
    }
}

// Neither a document without findings nor a word on standard error alone would be seen by a
// program.
TEST_F(CheckTest, has_what_can_not_be_read_in_its_documents)
{
    const ProgramRun json =
        check({u"--format"_s, u"json"_s, u"missing.dot"_s, u"faulty.dot"_s, u"good.dot"_s});
    EXPECT_EQ(json.status, 2);
    const QJsonArray files = QJsonDocument::fromJson(json.output).object()[u"files"_s].toArray();
    ASSERT_EQ(files.size(), 3);
    EXPECT_EQ(files[0][u"file"_s], u"missing.dot"_s);
    EXPECT_EQ(files[0][u"fault"_s], u"No such file or directory"_s);
    EXPECT_EQ(files[0][u"findings"_s].toArray().size(), 0);
    EXPECT_EQ(files[1][u"findings"_s].toArray().size(), 1);
    EXPECT_FALSE(files[2].toObject().contains(u"fault"_s));

    const ProgramRun sarif = check({u"--format"_s, u"sarif"_s, u"missing.dot"_s, u"faulty.dot"_s});
    EXPECT_EQ(sarif.status, 2);
    EXPECT_EQ(sarifFaults(sarif.output), "valid\n");
    const QJsonValue run = QJsonDocument::fromJson(sarif.output).object()[u"runs"_s][0];
    const QJsonValue invocation = run[u"invocations"_s][0];
    EXPECT_EQ(invocation[u"executionSuccessful"_s], false);
    ASSERT_EQ(invocation[u"toolExecutionNotifications"_s].toArray().size(), 1);
    EXPECT_EQ(invocation[u"toolExecutionNotifications"_s][0][u"message"_s][u"text"_s],
              u"the input can't be read: No such file or directory"_s);
    EXPECT_EQ(run[u"results"_s].toArray().size(), 1);
    const ProgramRun good = check({u"--format"_s, u"sarif"_s, u"good.dot"_s});
    const QJsonValue goodRun = QJsonDocument::fromJson(good.output).object()[u"runs"_s][0];
    EXPECT_EQ(goodRun[u"invocations"_s][0][u"executionSuccessful"_s], true);
}

TEST_F(CheckTest, shows_the_line_on_a_terminal)
{
    writeFile(u"chain.dot"_s, chain);
    const ProgramRun run = onTerminal({u"chain.dot"_s}, {{u"NO_COLOR"_s, u"1"_s}});
    EXPECT_EQ(run.status, 1);
    const QList<QByteArray> lines = QByteArray(run.output).replace("\r\n", "\n").split('\n');
    ASSERT_EQ(lines.size(), 4) << run.output.toStdString();
    EXPECT_TRUE(lines[0].startsWith("chain.dot:2:9: error: "));
    EXPECT_EQ(lines[1], "  \ta -> b -> c;");
    EXPECT_EQ(lines[2], "  \t       ^");
    EXPECT_FALSE(run.output.contains('\x1b'));
}

TEST_F(CheckTest, has_colours_on_a_terminal_that_shows_them)
{
    const QPair<QString, QString> unrefused{u"NO_COLOR"_s, {}};
    EXPECT_TRUE(onTerminal({u"faulty.dot"_s}, {unrefused, {u"TERM"_s, u"xterm"_s}})
                    .output.contains("\x1b[1;31merror:\x1b[0m"));
    for (const auto &[name, value] :
         QList<QPair<QString, QString>>{{u"TERM"_s, u"dumb"_s}, {u"TERM"_s, {}}})
        EXPECT_FALSE(
            onTerminal({u"faulty.dot"_s}, {unrefused, {name, value}}).output.contains('\x1b'));
}

TEST_F(CheckTest, needs_no_display_and_no_home_and_any_locale)
{
    const QList<QPair<QString, QString>> bare{{u"DISPLAY"_s, {}},
                                              {u"WAYLAND_DISPLAY"_s, {}},
                                              {u"HOME"_s, {}},
                                              {u"LC_ALL"_s, u"de_DE"_s},
                                              {u"QT_QPA_PLATFORM"_s, u"none-such"_s}};
    const ProgramRun run =
        this->run({.arguments = {u"check"_s, u"faulty.dot"_s, u"good.dot"_s}, .environment = bare});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output, check({u"faulty.dot"_s}).output);
}

TEST_F(CheckTest, finds_nothing_wrong_with_the_examples)
{
    // Maps of many small files, whose names there is no room for, if there is any for them.
    const QStringList crowded{u"own_files"_s, u"own_source"_s};
    int count = 0;
    QDirIterator inputs(QStringLiteral(ORR_PROJECT_FOLDER "/examples"), {u"*.dot"_s}, QDir::Files,
                        QDirIterator::Subdirectories);
    while (inputs.hasNext()) {
        const QString name = inputs.next();
        const QString engine = inputs.fileInfo().dir().dirName();
        QStringList arguments{u"-K"_s, engine, name};
        if (!crowded.contains(inputs.fileInfo().completeBaseName()))
            arguments += u"--werror"_s;
        const ProgramRun run = check(arguments);
        EXPECT_TRUE(succeeded(run)) << run.output.toStdString();
        ++count;
    }
    EXPECT_GE(count, 10);
}
