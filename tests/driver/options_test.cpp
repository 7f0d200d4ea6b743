// The options, the choice of format and engine, and the file that takes the drawing.
#include "drawing/format_table.h"
#include "drawing/layout_table.h"

#include "driver/program_run.h"
#include "support/golden.h"

#include <QRegularExpression>

using namespace ORR::Drawing;
using namespace Qt::StringLiterals;

namespace {

using Options = ProgramTest;

// What a file of each format starts with, in the order of the table.
const QList<QByteArray> firstBytes{"digraph", "\xFF\xD8\xFF", "\x89PNG",
                                   "<?xml",   "PK\x03\x04",   "<?xml"};

} // namespace

TEST_F(Options, help_is_printed_and_ends_the_run_well)
{
    const ProgramRun help = run({.arguments = {u"-h"_s}, .input = "not read"});
    EXPECT_TRUE(succeeded(help));
    EXPECT_TRUE(help.output.startsWith("Usage: "));
    EXPECT_TRUE(help.output.contains("\nOrrery Layout and Render Engines\n"));
    EXPECT_EQ(run({.arguments = {u"--help"_s}}).output, help.output);
}

TEST_F(Options, version_is_that_of_the_build)
{
    for (const QString &option : {u"-v"_s, u"--version"_s}) {
        const ProgramRun version = run({.arguments = {option}});
        EXPECT_TRUE(succeeded(version));
        EXPECT_EQ(version.output, "orrlayout (Build 1262)\n");
    }
}

TEST_F(Options, help_with_the_options_of_the_toolkit_ends_the_run_well_too)
{
    const ProgramRun help = run({.arguments = {u"--help-all"_s}});
    EXPECT_TRUE(succeeded(help));
    EXPECT_TRUE(help.output.startsWith("Usage: "));
}

TEST_F(Options, unknown_option_is_told_without_what_a_terminal_obeys)
{
    const ProgramRun told = run({.arguments = {u"--no\x1b[31m"_s}});
    EXPECT_EQ(told.status, 1);
    EXPECT_EQ(told.errors, "orrlayout: Unknown option 'no\\x1b[31m'.\n");
}

TEST_F(Options, unknown_option_ends_the_run)
{
    EXPECT_TRUE(failedWith(run({.arguments = {u"-X"_s}}), "orrlayout: Unknown option 'X'.\n"));
}

TEST_F(Options, every_format_of_the_table_is_written)
{
    ASSERT_EQ(firstBytes.size(), qsizetype(formatTable().size()));
    for (qsizetype i = 0; i < firstBytes.size(); ++i) {
        const FormatRow &row = formatRow(static_cast<Format>(i));
        const ProgramRun drawn = draw(smallGraph(), row.name);
        EXPECT_TRUE(succeeded(drawn)) << row.name.data();
        EXPECT_EQ(drawn.output.first(firstBytes[i].size()), firstBytes[i]) << row.name.data();
    }
}

TEST_F(Options, every_engine_of_the_table_draws)
{
    for (const LayoutRow &row : layoutTable()) {
        const ProgramRun drawn = draw(smallGraph(), u"xdot1.2"_s, row.name);
        EXPECT_TRUE(succeeded(drawn)) << row.name.data();
        EXPECT_TRUE(drawn.output.startsWith("digraph")) << row.name.data();
    }
}

TEST_F(Options, names_are_taken_in_any_case)
{
    const ProgramRun drawn = draw(smallGraph(), u"XDot1.2"_s, u"TreeMap"_s);
    EXPECT_TRUE(succeeded(drawn));
    EXPECT_EQ(drawn.output, draw(smallGraph()).output);
    EXPECT_TRUE(draw(smallGraph(), u"PNG"_s).output.startsWith("\x89PNG"));
}

TEST_F(Options, file_gets_what_standard_output_would_get)
{
    const ProgramRun drawn =
        run({.arguments = {u"-K"_s, u"treemap"_s, u"-o"_s, u"x.xdot"_s, u"-T"_s, u"xdot1.2"_s},
             .input = smallGraph()});
    EXPECT_TRUE(succeeded(drawn));
    EXPECT_EQ(drawn.output, "");
    EXPECT_EQ(fileContent(u"x.xdot"_s), draw(smallGraph()).output);
}

TEST_F(Options, input_file_is_read_in_place_of_standard_input)
{
    writeFile(u"in.dot"_s, smallGraph());
    const ProgramRun drawn = run(
        {.arguments = {u"-K"_s, u"treemap"_s, u"-T"_s, u"xdot1.2"_s, u"in.dot"_s}, .input = "{"});
    EXPECT_TRUE(succeeded(drawn));
    EXPECT_EQ(drawn.output, draw(smallGraph()).output);
}

TEST_F(Options, second_input_file_is_ignored)
{
    writeFile(u"in.dot"_s, smallGraph());
    const ProgramRun drawn = run({.arguments = {u"-K"_s, u"treemap"_s, u"-T"_s, u"xdot1.2"_s,
                                                u"in.dot"_s, u"missing.dot"_s}});
    EXPECT_TRUE(succeeded(drawn));
    EXPECT_EQ(drawn.output, draw(smallGraph()).output);
}

TEST_F(Options, file_may_be_written_over_the_input)
{
    writeFile(u"in.dot"_s, smallGraph());
    EXPECT_TRUE(
        succeeded(run({.arguments = {u"-K"_s, u"treemap"_s, u"-o"_s, u"in.dot"_s, u"in.dot"_s}})));
    EXPECT_EQ(fileContent(u"in.dot"_s), draw(smallGraph()).output);
}

TEST_F(Options, unknown_format_falls_through_to_the_suffix)
{
    EXPECT_TRUE(
        succeeded(run({.arguments = {u"-K"_s, u"treemap"_s, u"-T"_s, u"foo"_s, u"-o"_s, u"x.svg"_s},
                       .input = smallGraph()})));
    EXPECT_TRUE(fileContent(u"x.svg"_s).contains("<svg"));
}

TEST_F(Options, format_beats_the_suffix)
{
    EXPECT_TRUE(
        succeeded(run({.arguments = {u"-K"_s, u"treemap"_s, u"-T"_s, u"svg"_s, u"-o"_s, u"x.png"_s},
                       .input = smallGraph()})));
    EXPECT_TRUE(fileContent(u"x.png"_s).contains("<svg"));
}

TEST_F(Options, suffix_selects_its_format)
{
    const QList<std::pair<QString, QByteArray>> starts{
        {u"x.dot"_s, "digraph"},       {u"X.DOT"_s, "digraph"}, {u"x.jpeg"_s, "\xFF\xD8\xFF"},
        {u"X.JPEG"_s, "\xFF\xD8\xFF"}, {u"x.png"_s, "\x89PNG"}, {u"a.b.Svg"_s, "<?xml"},
        {u"x.vsdx"_s, "PK"},           {u"x.vdx"_s, "<?xml"}};
    for (const auto &[file, start] : starts) {
        EXPECT_TRUE(succeeded(
            run({.arguments = {u"-K"_s, u"treemap"_s, u"-o"_s, file}, .input = smallGraph()})));
        EXPECT_TRUE(fileContent(file).startsWith(start)) << file.toStdString();
    }
}

TEST_F(Options, suffix_starts_behind_the_last_dot)
{
    EXPECT_TRUE(failedWith(
        run({.arguments = {u"-K"_s, u"treemap"_s, u"-o"_s, u"x.xdot1.2"_s}, .input = smallGraph()}),
        formatMessage + helpText()));
    EXPECT_EQ(files(), QStringList());
}

TEST_F(Options, suffix_alias_is_no_format)
{
    for (const QString &alias : {u"dot"_s, u"jpeg"_s})
        EXPECT_TRUE(failedWith(draw(smallGraph(), alias), formatMessage + helpText()));
}

TEST_F(Options, good_input_without_a_format_fails)
{
    EXPECT_TRUE(failedWith(run({.arguments = {u"-K"_s, u"treemap"_s}, .input = smallGraph()}),
                           formatMessage + helpText()));
}

TEST_F(Options, input_is_judged_before_the_format)
{
    EXPECT_TRUE(
        failedWith(run({.arguments = {u"-K"_s, u"treemap"_s}, .input = "graph {}"}), parseMessage));
}

TEST_F(Options, format_is_judged_before_the_engine)
{
    EXPECT_TRUE(failedWith(run({.arguments = {u"-K"_s, u"foo"_s}, .input = smallGraph()}),
                           formatMessage + helpText()));
}

TEST_F(Options, missing_or_unknown_engine_fails)
{
    EXPECT_TRUE(failedWith(run({.arguments = {u"-T"_s, u"xdot1.2"_s}, .input = smallGraph()}),
                           layoutMessage + helpText()));
    EXPECT_TRUE(failedWith(draw(smallGraph(), u"xdot1.2"_s, u"foo"_s), layoutMessage + helpText()));
}

TEST_F(Options, graph_with_its_drawing_is_replayed_without_an_engine)
{
    const QByteArray drawn = draw(smallGraph()).output;
    const ProgramRun replayed = run({.arguments = {u"-T"_s, u"svg"_s}, .input = drawn});
    EXPECT_TRUE(succeeded(replayed));
    EXPECT_TRUE(replayed.output.contains(">Alpha<")) << replayed.output.toStdString();
    EXPECT_EQ(draw(drawn, u"svg"_s, u"foo"_s).output, replayed.output);
}

TEST_F(Options, empty_version_of_the_drawing_counts)
{
    EXPECT_TRUE(succeeded(
        run({.arguments = {u"-T"_s, u"svg"_s}, .input = "digraph { graph [xdotversion=\"\"]; }"})));
}

TEST_F(Options, drawing_inside_a_subgraph_is_not_replayed)
{
    EXPECT_TRUE(
        failedWith(run({.arguments = {u"-T"_s, u"svg"_s},
                        .input = "digraph { subgraph x { graph [xdotversion=\"1.2\"]; } }"}),
                   layoutMessage + helpText()));
}

TEST_F(Options, temporary_file_is_gone_after_a_successful_run)
{
    EXPECT_TRUE(succeeded(draw(smallGraph())));
    EXPECT_EQ(files(), QStringList());
}

TEST_F(Options, temporary_file_of_a_failed_run_stays_and_is_named_after_the_format)
{
    for (const FormatRow &row : formatTable()) {
        const QStringList before = files();
        draw(smallGraph(), row.name, u"foo"_s);
        QStringList after = files();
        for (const QString &file : before)
            after.removeAll(file);
        ASSERT_EQ(after.size(), 1) << row.name.data();
        const QRegularExpression name(
            u"^orr_orrlayout_[A-Za-z]{6}\\.%1$"_s.arg(QRegularExpression::escape(row.name)));
        EXPECT_TRUE(name.match(after.first()).hasMatch()) << after.first().toStdString();
    }
}

TEST_F(Options, failed_run_with_a_file_leaves_no_temporary_one)
{
    run({.arguments = {u"-o"_s, u"x.dot"_s}, .input = smallGraph()});
    EXPECT_EQ(files().filter(u"orr_orrlayout"_s), QStringList());
}
