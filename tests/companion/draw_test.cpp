// `orr draw` as a program: names, options, messages, statuses.
#include "companion/draw_run.h"
#include "support/golden.h"

#include <QDir>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr char notReadable[] = "Unable to parse dot input";

// A bare graph without an engine, in a file.
const QByteArray plainGraph = "digraph { a [area=1]; }";

} // namespace

TEST_F(DrawTest, draws_beside_each_input)
{
    ASSERT_TRUE(QDir(path(u"."_s)).mkdir(u"x"_s));
    writeFile(u"x/b.gv"_s, plainGraph);
    const ProgramRun run = drawMany(
        {u"-K"_s, u"treemap"_s, u"-T"_s, u"svg,vdx"_s, u"-O"_s, u"good.dot"_s, u"x/b.gv"_s});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "orr draw: 4 drawn, 0 failed\n");
    EXPECT_EQ(newFiles(), QStringList({u"good.svg"_s, u"good.vdx"_s, u"x"_s}));
    EXPECT_EQ(QDir(path(u"x"_s)).entryList(QDir::Files | QDir::Hidden, QDir::Name),
              QStringList({u"b.gv"_s, u"b.svg"_s, u"b.vdx"_s}));
    EXPECT_EQ(fileContent(u"good.svg"_s), drawnAlone(u"good.dot"_s, u"treemap"_s, u"svg"_s));
    EXPECT_EQ(fileContent(u"x/b.vdx"_s), drawnAlone(u"x/b.gv"_s, u"treemap"_s, u"vdx"_s));
}

TEST_F(DrawTest, draws_below_a_folder_at_the_place_of_the_input)
{
    for (const QString &name : {u"a"_s, u"a/b"_s, u"out"_s})
        ASSERT_TRUE(QDir(path(u"."_s)).mkdir(name));
    writeFile(u"a/b/c.dot"_s, plainGraph);
    const ProgramRun run =
        drawMany({u"-K"_s, u"bar"_s, u"-d"_s, u"out"_s, u"a/b/../b/c.dot"_s, path(u"good.dot"_s)});
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(fileContent(u"out/a/b/c.svg"_s), drawnAlone(u"a/b/c.dot"_s, u"bar"_s, u"svg"_s));
    EXPECT_EQ(fileContent(u"out/"_s + path(u"good.svg"_s)),
              drawnAlone(u"good.dot"_s, u"bar"_s, u"svg"_s));
    const ProgramRun above = drawMany({u"-d"_s, u"out"_s, u"a/../../c.dot"_s});
    EXPECT_EQ(above.status, 2);
    EXPECT_TRUE(above.errors.startsWith("orr draw: 'a/../../c.dot' lies above the working folder"));
}

TEST_F(DrawTest, takes_the_engine_from_the_text_unless_told)
{
    writeFile(u"t.dot"_s, "digraph { graph [layout=Treemap]; a [area=3]; b [area=1]; }");
    EXPECT_EQ(drawMany({u"t.dot"_s}).status, 0);
    EXPECT_EQ(fileContent(u"t.svg"_s), drawnAlone(u"t.dot"_s, u"treemap"_s, u"svg"_s));
    EXPECT_EQ(drawMany({u"-K"_s, u"bar"_s, u"t.dot"_s}).status, 0);
    EXPECT_EQ(fileContent(u"t.svg"_s), drawnAlone(u"t.dot"_s, u"bar"_s, u"svg"_s));
    const ProgramRun none = drawMany({u"good.dot"_s});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.errors,
              "orr draw: 'good.dot': Layout required and layout engine not provided/available.\n"
              "orr draw: 0 drawn, 1 failed\n");
    writeFile(u"t.dot"_s, "digraph { graph [layout=tremap]; a [area=3]; }");
    EXPECT_EQ(drawMany({u"t.dot"_s}).errors,
              "orr draw: 't.dot': Layout required and layout engine not provided/available.; there "
              "is no engine 'tremap'; did you mean 'treemap'?\n"
              "orr draw: 0 drawn, 1 failed\n");
}

TEST_F(DrawTest, replays_a_finished_drawing)
{
    writeFile(u"done.xdot"_s, drawnAlone(u"good.dot"_s, u"treemap"_s, u"xdot1.2"_s));
    EXPECT_EQ(drawMany({u"-T"_s, u"svg"_s, u"done.xdot"_s}).status, 0);
    EXPECT_EQ(fileContent(u"done.svg"_s), drawnAlone(u"done.xdot"_s, {}, u"svg"_s));
}

TEST_F(DrawTest, reads_labels_as_html_when_the_environment_says_so)
{
    writeFile(u"h.dot"_s,
              R"(digraph { graph [bb="0,0,50,20" xdotversion="1.2"];
                 a [_ldraw_="F 10 5 -Arial c 7 -#000000 T 10 10 0 20 11 -<b>bold</b>"]; })");
    const auto drawn = [this](const QString &html) {
        run({.arguments = {u"draw"_s, u"h.dot"_s},
             .environment = {{u"ORR_GVLAYOUT_USE_HTML"_s, html}}});
        return fileContent(u"h.svg"_s);
    };
    const QByteArray plain = drawn(QString());
    EXPECT_TRUE(plain.contains("&lt;b&gt;")) << plain.toStdString();
    EXPECT_FALSE(drawn(u"1"_s).contains("&lt;b&gt;"));
    EXPECT_EQ(drawn(u"0"_s), plain);
}

TEST_F(DrawTest, draws_from_and_to_standard_streams)
{
    const QByteArray svg = drawnAlone(u"good.dot"_s, u"treemap"_s, u"svg"_s);
    const ProgramRun both =
        drawMany({u"-K"_s, u"treemap"_s, u"-T"_s, u"svg"_s, u"-o"_s, u"-"_s}, smallGraph());
    EXPECT_EQ(both.status, 0);
    EXPECT_EQ(both.output, svg);
    const ProgramRun named =
        drawMany({u"-K"_s, u"treemap"_s, u"-o"_s, u"z.png"_s, u"-"_s}, smallGraph());
    EXPECT_EQ(named.status, 0);
    EXPECT_EQ(fileContent(u"z.png"_s), drawnAlone(u"good.dot"_s, u"treemap"_s, u"png"_s));
    EXPECT_EQ(drawMany({u"-K"_s, u"treemap"_s, u"-o"_s, u"-"_s, u"good.dot"_s}).output, svg);
    const ProgramRun byName = drawMany(
        {u"-K"_s, u"treemap"_s, u"-T"_s, u"svg"_s, u"-o"_s, u"/dev/stdout"_s, u"/dev/stdin"_s},
        smallGraph());
    EXPECT_EQ(byName.status, 0);
    EXPECT_EQ(byName.output, svg);
    const ProgramRun full = shell(u"exec \"$0\" draw -K treemap -o - good.dot >/dev/full"_s);
    EXPECT_EQ(full.status, 2);
    EXPECT_TRUE(full.errors.startsWith(
        "orr draw: standard output can't be written: No space left on device\n"));
}

TEST_F(DrawTest, fails_alone)
{
    const ProgramRun run = drawMany(
        {u"-K"_s, u"treemap"_s, u"missing.dot"_s, u"good.dot"_s, u"faulty.dot"_s, u"-j"_s, u"1"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors,
              QByteArray("orr draw: 'missing.dot': the input can't be read: No such file or "
                         "directory\norr draw: 'faulty.dot': ")
                  + notReadable + "\norr draw: 1 drawn, 2 failed\n");
    EXPECT_EQ(newFiles(), QStringList(u"good.svg"_s));
}

TEST_F(DrawTest, refuses_two_drawings_with_one_output)
{
    writeFile(u"good.gv"_s, plainGraph);
    const ProgramRun two = drawMany({u"-K"_s, u"bar"_s, u"./good.dot"_s, u"good.gv"_s});
    EXPECT_EQ(two.status, 2);
    EXPECT_EQ(two.errors,
              "orr draw: 'good.svg' is the output of both './good.dot' and 'good.gv'\n"
              "Try 'orr draw --help'.\n");
    const ProgramRun same = drawMany({u"-K"_s, u"bar"_s, u"-O"_s, u"-T"_s, u"svg"_s, u"a.svg"_s});
    EXPECT_EQ(same.errors,
              "orr draw: 'a.svg' is an input and would be written over\n"
              "Try 'orr draw --help'.\n");
    const ProgramRun other =
        drawMany({u"-K"_s, u"bar"_s, u"-T"_s, u"svg"_s, u"good.dot"_s, u"good.svg"_s});
    EXPECT_EQ(other.status, 2);
    EXPECT_EQ(newFiles(), QStringList(u"good.gv"_s));
}

TEST_F(DrawTest, finds_one_output_behind_links)
{
    ASSERT_EQ(shell(u"ln -s . l; cp good.dot b.dot; cp good.dot c.dot; ln -s b.dot c.svg"_s).status,
              0);
    writeFile(u"jobs"_s,
              "{\"in\":\"good.dot\",\"out\":\"z.svg\"}\n"
              "{\"in\":\"b.dot\",\"out\":\"l/z.svg\"}\n");
    const auto errors = [this](const QStringList &arguments) {
        const ProgramRun run = drawMany(QStringList{u"-K"_s, u"bar"_s} + arguments);
        EXPECT_EQ(run.status, 2);
        return run.errors.first(run.errors.indexOf('\n'));
    };
    EXPECT_EQ(errors({u"--jobs"_s, u"jobs"_s}),
              "orr draw: line 2: 'l/z.svg' is the output of both 'good.dot' (line 1) and 'b.dot'");
    EXPECT_EQ(errors({u"-T"_s, u"svg"_s, u"-o"_s, u"l/b.dot"_s, u"b.dot"_s}),
              "orr draw: 'l/b.dot' is an input and would be written over");
    // It is what a link leads to that is written.
    EXPECT_EQ(errors({u"b.dot"_s, u"c.dot"_s}),
              "orr draw: 'c.svg' is an input and would be written over");
    EXPECT_EQ(fileContent(u"b.dot"_s), smallGraph());
    EXPECT_FALSE(newFiles().contains(u"z.svg"_s));
}

TEST_F(DrawTest, writes_no_report_over_anything_else)
{
    writeFile(u"good.svg"_s, "as it was");
    const auto errors = [this](const QString &report) {
        const ProgramRun run =
            drawMany({u"-K"_s, u"bar"_s, u"--changed"_s, u"--report"_s, report, u"good.dot"_s});
        EXPECT_EQ(run.status, 2);
        return run.errors.first(run.errors.indexOf('\n'));
    };
    EXPECT_EQ(errors(u"./good.dot"_s), "orr draw: './good.dot' is both an input and the report");
    EXPECT_EQ(errors(u"good.svg"_s),
              "orr draw: 'good.svg' is both the output of 'good.dot' and the report");
    EXPECT_EQ(errors(u".orr-draw-notes"_s),
              "orr draw: '.orr-draw-notes' is both the file of notes and the report");
    EXPECT_EQ(fileContent(u"good.dot"_s), smallGraph());
    EXPECT_EQ(fileContent(u"good.svg"_s), "as it was");
    EXPECT_EQ(newFiles(), QStringList(u"good.svg"_s));
    EXPECT_EQ(drawMany({u"-K"_s, u"bar"_s, u"--report"_s, u"/dev/null"_s, u"good.dot"_s}).status,
              0);
}

TEST_F(DrawTest, says_what_is_wrong_with_its_use)
{
    const auto wrong = [this](const QStringList &arguments) {
        const ProgramRun run = drawMany(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_TRUE(run.errors.endsWith("\nTry 'orr draw --help'.\n"));
        return run.errors.first(run.errors.indexOf('\n'));
    };
    const QString in = u"good.dot"_s;
    EXPECT_EQ(wrong({}), "orr draw: an input is missing");
    EXPECT_EQ(wrong({u"-"_s}), "orr draw: a drawing of standard input needs -o");
    EXPECT_EQ(wrong({u"-O"_s, u"-d"_s, u"x"_s, in}), "orr draw: -O, -d and -o exclude each other");
    EXPECT_EQ(wrong({u"-o"_s, u"x.svg"_s, in, in}), "orr draw: -o takes one drawing only");
    EXPECT_EQ(wrong({u"-o"_s, u"x"_s, u"-T"_s, u"svg,png"_s, in}),
              "orr draw: -o takes one format only");
    EXPECT_EQ(wrong({u"-o"_s, u"x.foo"_s, in}),
              "orr draw: the format of 'x.foo' is not known; -T gives it");
    EXPECT_EQ(wrong({u"-T"_s, u"svq"_s, in}),
              "orr draw: there is no format 'svq'; did you mean 'svg'?");
    EXPECT_EQ(wrong({u"-T"_s, u"svg,SVG"_s, in}), "orr draw: the format 'SVG' is named twice");
    EXPECT_EQ(wrong({u"-K"_s, u"tremap"_s, in}),
              "orr draw: there is no engine 'tremap'; did you mean 'treemap'?");
    EXPECT_EQ(wrong({u"-d"_s, u"nowhere"_s, in}),
              "orr draw: 'nowhere' can't be written to: No such file or directory");
    EXPECT_EQ(wrong({u"-d"_s, u"good.dot"_s, in}),
              "orr draw: 'good.dot' can't be written to: Not a directory");
    EXPECT_EQ(wrong({u"--shard"_s, u"3/2"_s, in}),
              "orr draw: --shard: '3/2' is no I/N with I from 1 to N");
    EXPECT_EQ(wrong({u"--report"_s, u"no/where"_s, in}),
              "orr draw: 'no/where' can't be written: No such file or directory");
    EXPECT_EQ(wrong({u"--jobs"_s, u"x"_s, in}),
              "orr draw: --jobs names the inputs, and takes no others");
    EXPECT_EQ(wrong({u"--jobs"_s, u"x"_s}),
              "orr draw: 'x' can't be read: No such file or directory");
    EXPECT_TRUE(wrong({u"-j"_s, u"0"_s, in}).startsWith("orr draw: -j: "));
    EXPECT_TRUE(wrong({u"--timeout"_s, u"-1"_s, in}).startsWith("orr draw: --timeout: "));
    EXPECT_EQ(newFiles(), QStringList());
}

TEST_F(DrawTest, takes_any_name)
{
    const QByteArrayList names{"two words.dot", "line\nend.dot", "no\xff.dot", "[a].dot",
                               "%41.dot"};
    QByteArray list;
    for (const QByteArray &name : names)
        list += " '" + name + '\'';
    writeFile(u"script"_s,
              "for i in" + list
                  + "; do cp good.dot \"$i\"; done\nexec \"$0\" draw "
                    "-K bar --report r.jsonl"
                  + list + "\n");
    const ProgramRun run = shell(u". ./script"_s);
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    const ProgramRun compared =
        shell(u"for i in *.svg; do cmp \"$i\" '[a].svg' || exit 1; echo x; done"_s);
    EXPECT_EQ(compared.status, 0) << compared.errors.toStdString();
    EXPECT_EQ(compared.output.count('x'), names.size());
    QSet<QString> reported;
    for (const QJsonObject &line : jsonLines(fileContent(u"r.jsonl"_s)))
        reported.insert(line[u"input"_s].toString());
    EXPECT_TRUE(reported.contains(u"line\nend.dot"_s));
    EXPECT_TRUE(reported.contains(u"no"_s + QChar(0xDCFF) + u".dot"_s));
    EXPECT_EQ(shell(u"rm -f no*"_s).status, 0); // the toolkit can't
}

TEST_F(DrawTest, tells_names_so_that_no_terminal_obeys_them)
{
    const ProgramRun run = drawMany({u"-K"_s, u"bar"_s, u"\u001b[2J.dot"_s});
    EXPECT_TRUE(run.errors.startsWith("orr draw: '\\x1b[2J.dot': ")) << run.errors.toStdString();
}

TEST_F(DrawTest, lets_no_name_begin_a_message)
{
    const QString name = u"a\norr draw: all drawn"_s;
    const QByteArray shown = "a\\x0aorr draw: all drawn";
    const auto firstLine = [this](const QStringList &arguments) {
        const ProgramRun run = drawMany(QStringList{u"-K"_s, u"bar"_s} + arguments);
        return run.errors.first(run.errors.indexOf('\n'));
    };
    EXPECT_EQ(firstLine({name}),
              "orr draw: '" + shown + "': the input can't be read: No such file or directory");
    EXPECT_EQ(firstLine({u"-T"_s, u"svg,png"_s, u"-j"_s, u"1"_s, name}),
              "orr draw: '" + shown + "': '" + shown
                  + ".svg': the input can't be read: No such file or directory");
    EXPECT_EQ(firstLine({name, name}),
              "orr draw: '" + shown + ".svg' is the output of both '" + shown + "' and '" + shown
                  + '\'');
    for (const QStringList &arguments :
         {QStringList{u"-o"_s, name + u".svg"_s, name + u".svg"_s},
          QStringList{u"-o"_s, name, u"good.dot"_s}, QStringList{u"-d"_s, name, u"good.dot"_s},
          QStringList{u"-d"_s, u"."_s, u"../"_s + name}, QStringList{u"-T"_s, name, u"good.dot"_s},
          QStringList{u"--jobs"_s, name},
          QStringList{u"--report"_s, name + u"/x"_s, u"good.dot"_s}})
        EXPECT_TRUE(firstLine(arguments).contains(shown)) << arguments.join(u' ').toStdString();
}

TEST_F(DrawTest, reports_every_drawing)
{
    const ProgramRun run = drawMany({u"-K"_s, u"treemap"_s, u"-T"_s, u"svg,png"_s, u"--report"_s,
                                     u"r.jsonl"_s, u"good.dot"_s, u"faulty.dot"_s});
    EXPECT_EQ(run.status, 1);
    QMap<QString, QJsonObject> byOutput;
    for (const QJsonObject &line : jsonLines(fileContent(u"r.jsonl"_s)))
        byOutput[line[u"output"_s].toString()] = line;
    ASSERT_EQ(byOutput.keys(),
              QStringList({u"faulty.png"_s, u"faulty.svg"_s, u"good.png"_s, u"good.svg"_s}));
    const QJsonObject good = byOutput[u"good.svg"_s];
    EXPECT_EQ(good[u"input"_s].toString(), u"good.dot"_s);
    EXPECT_EQ(good[u"status"_s].toString(), u"drawn"_s);
    EXPECT_GT(good[u"milliseconds"_s].toDouble(), 0);
    EXPECT_GT(good[u"peakMemory"_s].toInteger(), 1000);
    EXPECT_FALSE(good.contains(u"message"_s));
    const QJsonObject faulty = byOutput[u"faulty.png"_s];
    EXPECT_EQ(faulty[u"status"_s].toString(), u"failed"_s);
    EXPECT_EQ(faulty[u"message"_s].toString(), QString::fromLatin1(notReadable));
}

TEST_F(DrawTest, fails_where_the_report_can_not_be_written)
{
    const ProgramRun run =
        drawMany({u"-K"_s, u"treemap"_s, u"--report"_s, u"/dev/full"_s, u"good.dot"_s});
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(
        run.errors.startsWith("orr draw: '/dev/full' can't be written: No space left on device\n"));
}

TEST_F(DrawTest, tells_what_is_wrong_with_the_folder_of_an_output)
{
    const ProgramRun run =
        drawMany({u"-K"_s, u"treemap"_s, u"-o"_s, u"no/where.svg"_s, u"good.dot"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors,
              "orr draw: 'good.dot': Unable to open file; its folder: No such file or directory\n"
              "orr draw: 0 drawn, 1 failed\n");
}

TEST_F(DrawTest, on_a_full_disk_fails_and_leaves_nothing_half)
{
    const QString script = u"mount -t tmpfs -o size=64k none . && cd \"$PWD\" || exit 77; "
                           "for i in 1 2 3 4 5 6 7 8; do "
                           "echo 'digraph { a [area=1]; b [area=2]; }' >$i.dot; done; "
                           "head -c 24k /dev/zero >filler; "
                           "\"$0\" draw -K treemap -T png,svg ?.dot; echo $?; ls -A"_s;
    const ProgramRun run = this->run(
        {.arguments = {u"-m"_s, u"/bin/sh"_s, u"-c"_s, script, QStringLiteral(ORR_PROGRAM)},
         .command = u"unshare"_s});
    if (run.status == 77 || run.errors.startsWith("unshare:"))
        GTEST_SKIP() << "no file system can be mounted here";
    EXPECT_TRUE(run.output.startsWith("1\n")) << run.output.toStdString();
    EXPECT_TRUE(run.output.contains(".svg") || run.output.contains(".png"))
        << run.output.toStdString();
    EXPECT_FALSE(run.output.contains(".tmp")) << run.output.toStdString();
    EXPECT_TRUE(run.errors.contains("Unable to write to file")
                || run.errors.contains("Could not save image to file"))
        << run.errors.toStdString();
    QByteArrayList lines = run.errors.trimmed().split('\n');
    lines.removeLast();
    for (const QByteArray &line : std::as_const(lines)) {
        EXPECT_TRUE(line.endsWith("; No space left on device")) << line.toStdString();
        EXPECT_TRUE(line.contains(".dot': '")) << line.toStdString();
    }
}

TEST_F(DrawTest, takes_each_input_in_one_share)
{
    QStringList names;
    for (int i = 0; i < 40; ++i) {
        names += u"n%1.dot"_s.arg(i);
        writeFile(names.last(), plainGraph);
    }
    QStringList drawn;
    for (const QString &shard : {u"1/3"_s, u"2/3"_s, u"3/3"_s}) {
        const QString report = u"r%1.jsonl"_s.arg(shard.first(1));
        const ProgramRun run = drawMany(
            QStringList{u"-K"_s, u"bar"_s, u"--shard"_s, shard, u"--report"_s, report} + names);
        EXPECT_EQ(run.status, 0) << run.errors.toStdString();
        const QList<QJsonObject> lines = jsonLines(fileContent(report));
        EXPECT_GT(lines.size(), 5);
        for (const QJsonObject &line : lines)
            drawn += line[u"input"_s].toString();
    }
    drawn.sort();
    names.sort();
    EXPECT_EQ(drawn, names);
}

TEST_F(DrawTest, takes_a_hundred_thousand_names)
{
    QStringList names;
    for (int i = 0; i < 100'000; ++i)
        names += u"m%1"_s.arg(i);
    const ProgramRun run =
        drawMany(QStringList{u"-K"_s, u"bar"_s, u"--shard"_s, u"7/1000"_s} + names);
    EXPECT_EQ(run.status, 1);
    const QByteArrayList lines = run.errors.trimmed().split('\n');
    EXPECT_GT(lines.size(), 50);
    EXPECT_EQ(lines.last(),
              "orr draw: 0 drawn, " + QByteArray::number(lines.size() - 1) + " failed");
}

TEST_F(DrawTest, shows_its_progress_on_a_terminal_only)
{
    const QString python = u"import os, pty, sys; sys.exit(os.waitstatus_to_exitcode("
                           "pty.spawn(sys.argv[1:])))"_s;
    const ProgramRun shown = run({.arguments = {u"-c"_s, python, QStringLiteral(ORR_PROGRAM),
                                                u"draw"_s, u"-K"_s, u"treemap"_s, u"good.dot"_s},
                                  .command = u"python3"_s});
    EXPECT_EQ(shown.status, 0);
    EXPECT_TRUE(shown.output.contains("0 of 1 done, 0 failed\r")) << shown.output.toStdString();
    EXPECT_TRUE(shown.output.endsWith("\r\x1b[Korr draw: 1 drawn, 0 failed\r\n"));
}
