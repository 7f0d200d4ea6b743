// `orr import` on the real program: options, streams, faults and what is written.
#include "driver/program_run.h"

using namespace Qt::StringLiterals;

namespace {

constexpr char sizes[] = "12\tsrc/a\n30\tsrc/b\n42\tsrc\n";

class ImportProgram : public ProgramTest
{
protected:
    ProgramRun import(const QStringList &arguments, const QByteArray &input = sizes) const
    {
        return run({.arguments = QStringList(u"import"_s) + arguments,
                    .input = input,
                    .command = QStringLiteral(ORR_PROGRAM)});
    }

    // The use was wrong, and nothing was written.
    void expectWrongUse(const QStringList &arguments, const QByteArray &message) const
    {
        const ProgramRun made = import(arguments);
        EXPECT_EQ(made.status, 2);
        EXPECT_EQ(made.output, QByteArray());
        EXPECT_EQ(made.errors, "orr import: " + message + "\nTry 'orr import --help'.\n");
    }
};

} // namespace

TEST_F(ImportProgram, writes_a_graph_that_orrlayout_draws)
{
    const ProgramRun made = import({u"du"_s});
    ASSERT_TRUE(succeeded(made));
    EXPECT_TRUE(made.output.startsWith("digraph"));
    const ProgramRun drawing = run({.arguments = {u"-K"_s, u"treemap"_s, u"-T"_s, u"svg"_s},
                                    .input = made.output,
                                    .command = QStringLiteral(ORR_LAYOUT_PROGRAM)});
    ASSERT_TRUE(succeeded(drawing));
    ASSERT_TRUE(succeeded(import({u"du"_s, u"-o"_s, u"a.svg"_s})));
    EXPECT_EQ(fileContent(u"a.svg"_s), drawing.output);
}

TEST_F(ImportProgram, writes_what_the_suffix_says)
{
    const QList<QPair<QString, QByteArray>> beginnings = {
        {u"a.svg"_s, "<?xml"},
        {u"a.png"_s, "\x89PNG"},
        {u"a.jpg"_s, "\xff\xd8"},
        {u"a.pdf"_s, "%PDF"},
        {u"a.vsdx"_s, "PK"},
        {u"a.vdx"_s, "<?xml"},
        {u"a.dot"_s, "digraph \"src\" {"},
        {u"a.xdot"_s, "digraph \"name\" {"},
        {u"a.html"_s, "<!DOCTYPE html>"},
    };
    for (const auto &[file, beginning] : beginnings) {
        EXPECT_TRUE(succeeded(import({u"du"_s, u"-o"_s, file}))) << file.toStdString();
        EXPECT_TRUE(fileContent(file).startsWith(beginning)) << file.toStdString();
    }
}

TEST_F(ImportProgram, gives_the_same_bytes_for_the_same_input)
{
    writeFile(u"sizes"_s, sizes);
    const QByteArray once = import({u"du"_s, u"sizes"_s}).output;
    EXPECT_FALSE(once.isEmpty());
    EXPECT_EQ(import({u"du"_s, u"sizes"_s}).output, once);
    EXPECT_EQ(import({u"du"_s, u"-"_s}).output, once);
}

TEST_F(ImportProgram, tells_wrong_use)
{
    expectWrongUse({}, "a format is missing");
    expectWrongUse({u"du"_s, u"-K"_s, u"umlseq"_s},
                   "du is drawn as treemap, sunburst, flatbubble, bar, gftree, not as 'umlseq'");
    expectWrongUse({u"du"_s, u"--layout"_s, u"dot"_s}, "--layout is no option of du");
    expectWrongUse({u"cvs"_s}, "there is no format 'cvs'; did you mean 'csv'?");
    expectWrongUse({u"du"_s, u"-o"_s, u"a.bmp"_s},
                   "'a.bmp' ends in none of .xdot, .jpg, .png, .svg, .vsdx, .vdx, .pdf, .html, "
                   ".dot");
    writeFile(u"sizes.dot"_s, sizes);
    expectWrongUse({u"du"_s, u"-o"_s, u"sizes.dot"_s, u"sizes.dot"_s},
                   "'sizes.dot' is an input and would be written over");
    EXPECT_EQ(import({u"du"_s, u"--size"_s, u"12"_s}).status, 2);
}

TEST_F(ImportProgram, tells_what_a_file_looks_like)
{
    writeFile(u"sizes"_s, sizes);
    expectWrongUse({u"sizes"_s}, "'sizes' is no format but looks like du: try 'du sizes'");
    const ProgramRun other = import({u"lcov"_s, u"sizes"_s});
    EXPECT_EQ(other.status, 1);
    EXPECT_EQ(other.errors, "orr import lcov: sizes looks like du; try 'orr import du'\n");
}

TEST_F(ImportProgram, tells_what_a_broken_file_looks_like)
{
    const ProgramRun table = import({u"lcov"_s}, "path,size\na,1\nb,2\n");
    EXPECT_EQ(table.status, 1);
    EXPECT_EQ(table.output, QByteArray());
    EXPECT_TRUE(table.errors.startsWith("orr import lcov: standard input:1: "))
        << table.errors.toStdString();
    EXPECT_TRUE(table.errors.endsWith("; the input looks like csv\n"))
        << table.errors.toStdString();
    const ProgramRun report = import({u"junit"_s}, "<?xml version='1.0'?><coverage/>");
    EXPECT_EQ(report.status, 1);
    EXPECT_TRUE(report.errors.endsWith("; the input looks like XML with <coverage>\n"))
        << report.errors.toStdString();
    const ProgramRun object = import({u"deps"_s}, "{\"a\": 1}");
    EXPECT_EQ(object.status, 1);
    EXPECT_FALSE(object.errors.contains("looks like")) << object.errors.toStdString();
}

TEST_F(ImportProgram, reads_no_picture)
{
    const ProgramRun picture = import({u"du"_s}, QByteArray("\x89PNG\r\n\x1a\n\0\0", 10));
    EXPECT_EQ(picture.status, 1);
    EXPECT_EQ(picture.errors, "orr import du: standard input looks like a PNG picture\n");
    const ProgramRun table = import({u"csv"_s}, QByteArray("\x1f\x8b\x08\0", 4));
    EXPECT_EQ(table.status, 1);
    EXPECT_EQ(table.errors,
              "orr import csv: standard input looks like a file that gzip packed; unpack it "
              "first\n");
}

TEST_F(ImportProgram, takes_no_other_format_for_a_table)
{
    const std::pair<QString, QByteArray> others[] = {
        {u"size/sections.csv"_s, "size"},   {u"lcov/parser.info"_s, "lcov"},
        {u"ninja/ninja_log"_s, "ninja"},    {u"cloc/companion.json"_s, "cloc"},
        {u"numstat/page.log"_s, "numstat"}, {u"size/objects.txt"_s, "size"},
    };
    for (const auto &[name, format] : others) {
        const QString file = QStringLiteral(ORR_PROJECT_FOLDER "/tests/import/data/") + name;
        const ProgramRun made = import({u"csv"_s, file});
        EXPECT_EQ(made.status, 1) << qPrintable(name);
        EXPECT_EQ(made.output, QByteArray());
        EXPECT_EQ(made.errors,
                  "orr import csv: " + file.toUtf8() + " looks like " + format
                      + "; try 'orr import " + format
                      + "', or name its columns by --path and --area\n");
    }
    const QString table = QStringLiteral(ORR_PROJECT_FOLDER "/tests/import/data/size/sections.csv");
    EXPECT_TRUE(succeeded(import({u"csv"_s, u"--area"_s, u"filesize"_s, table})));
    const ProgramRun named = import({u"csv"_s}, "added\tdeleted\tpath\n3\t4\ta\n");
    EXPECT_TRUE(succeeded(named)) << named.errors.toStdString();
}

TEST_F(ImportProgram, writes_nothing_where_numbers_go_beyond_double)
{
    const std::pair<QString, QByteArray> inputs[] = {
        {u"du"_s, "1e308\ta/b\n1e308\tc/d\n"},
        {u"folded"_s, "a;b 1e308\na;c 1e308\n"},
        {u"csv"_s, "path,size\na,1e308\nb,1e308\n"},
        {u"deps"_s, "a -> b 1e308\na -> b 1e308\n"},
        {u"dot"_s, "digraph { a -> b [weight=\"1e308\"] b -> c [weight=\"1e308\"] }"},
    };
    for (const auto &[format, input] : inputs) {
        const ProgramRun made = import({format}, input);
        EXPECT_EQ(made.status, 1) << qPrintable(format);
        EXPECT_EQ(made.output, QByteArray()) << qPrintable(format);
        EXPECT_TRUE(made.errors.contains("add up to more than a number can hold"))
            << made.errors.toStdString();
    }
}

TEST_F(ImportProgram, passes_over_the_mark_of_an_encoding)
{
    EXPECT_EQ(import({u"du"_s}, QByteArray("\xef\xbb\xbf") + sizes).output,
              import({u"du"_s}).output);
    EXPECT_TRUE(succeeded(import({u"deps"_s},
                                 "\xef\xbb\xbf"
                                 "a\tb\nb\tc\n")));
}

TEST_F(ImportProgram, tells_what_can_not_be_read)
{
    const ProgramRun missing = import({u"du"_s, u"nothing"_s});
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.errors,
              "orr import du: 'nothing' can't be read: No such file or directory\n");
    const ProgramRun aFolder = import({u"du"_s, u"."_s});
    EXPECT_EQ(aFolder.status, 2);
    EXPECT_EQ(aFolder.errors, "orr import du: . can't be read: Is a directory\n");
}

TEST_F(ImportProgram, leaves_what_stood_there_if_a_line_is_broken)
{
    writeFile(u"a.svg"_s, "old");
    const ProgramRun made = import({u"du"_s, u"-o"_s, u"a.svg"_s}, "12\tsrc/a\nno line\n");
    EXPECT_EQ(made.status, 1);
    EXPECT_TRUE(made.errors.startsWith("orr import du: standard input:2: "))
        << made.errors.toStdString();
    EXPECT_EQ(fileContent(u"a.svg"_s), "old");
}

TEST_F(ImportProgram, writes_nothing_to_a_terminal_that_it_would_obey)
{
    const ProgramRun made = import({u"du"_s}, "12\tsrc/a\n\x1b[2J no line\n");
    EXPECT_EQ(made.status, 1);
    EXPECT_FALSE(made.errors.contains('\x1b'));
}

TEST_F(ImportProgram, tells_of_bars_that_are_wider_than_the_page)
{
    const QString log = QStringLiteral(ORR_PROJECT_FOLDER "/tests/import/data/numstat/page.log");
    const QStringList bars = {u"numstat"_s, u"-K"_s, u"bar"_s, log, u"--size"_s};
    EXPECT_TRUE(import(bars + QStringList(u"120x600"_s)).errors.contains("not 120 x 600"));
    EXPECT_EQ(import(bars + QStringList(u"600x600"_s)).errors, QByteArray());
}

TEST_F(ImportProgram, lists_the_formats)
{
    const ProgramRun list = import({u"--formats"_s});
    ASSERT_TRUE(succeeded(list));
    for (const char *const format : {"dot ", "folded ", "mermaid ", "lcov ", "csv "})
        EXPECT_TRUE(list.output.contains(format)) << format;
}
