// Runs that fail before there is a drawing, or with one.
#include "faults/fault_run.h"
#include "support/golden.h"

using namespace Qt::StringLiterals;

namespace {

using FailedRun = FaultTest;

ORR_FOR_EACH_FORMAT(FailedRun);

} // namespace

TEST_P(FailedRun, unknown_layout_leaves_what_stood_there)
{
    EXPECT_TRUE(failedWith(
        run({.arguments = arguments() + QStringList{u"-K"_s, u"typo"_s}, .input = smallGraph()}),
        layoutMessage + helpText()));
    EXPECT_TRUE(isUntouched());
}

TEST_P(FailedRun, failure_of_an_engine_leaves_what_stood_there)
{
    EXPECT_TRUE(failedWith(run({.arguments = arguments() + QStringList{u"-K"_s, u"gftree"_s},
                                .input = "digraph { subgraph cluster_a { a; } }"}),
                           "GraflibTree does not support subgraphs\n"));
    EXPECT_TRUE(isUntouched());
}

TEST_P(FailedRun, input_that_is_the_output_is_read_before)
{
    writeFile(output(), smallGraph());
    EXPECT_TRUE(succeeded(run({.arguments = arguments() + QStringList(output())})));
    EXPECT_EQ(fileContent(output()), drawing(smallGraph()));
}

TEST_P(FailedRun, input_that_is_the_output_survives_a_failure)
{
    writeFile(output(), smallGraph());
    EXPECT_TRUE(
        failedWith(run({.arguments = arguments() + QStringList{u"-K"_s, u"typo"_s, output()}}),
                   layoutMessage + helpText()));
    EXPECT_EQ(fileContent(output()), smallGraph());
}

TEST_P(FailedRun, replay_with_a_fault_shows_what_was_drawn_up_to_there)
{
    const QByteArray graph = "digraph { graph [xdotversion=\"1.2\", bb=\"0,0,90,50\"];"
                             " a [_draw_=\"c 5 -black p 3 0 0 30 10 20 40 \"];";
    const QString whole = u"whole."_s + format();
    ASSERT_TRUE(succeeded(run({.arguments = arguments(whole), .input = graph + "}"})));
    // A node without a semicolon is one for the reader and none for the replay.
    EXPECT_TRUE(failedWith(run({.arguments = arguments(), .input = graph + " b }"}),
                           "Unable to parse input xdot"));
    EXPECT_EQ(fileContent(output()), fileContent(whole));
    EXPECT_EQ(allFiles(), (QStringList{output(), whole}));
}
