// Standard streams that are closed or broken, in every format.
#include "faults/fault_run.h"
#include "support/golden.h"

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Streams = FaultTest;

ORR_FOR_EACH_FORMAT(Streams);

void writeToFullDisk()
{
    ::dup2(::open("/dev/full", O_WRONLY), STDOUT_FILENO);
}

void writeToNobody()
{
    int ends[2];
    if (::pipe(ends) != 0)
        ::_exit(99);
    ::close(ends[0]);
    ::dup2(ends[1], STDOUT_FILENO);
    ::close(ends[1]);
}

} // namespace

TEST_P(Streams, closed_input_leaves_what_stood_there)
{
    EXPECT_TRUE(failedWith(run({.arguments = arguments(), .before = closed({0})}), inputMessage));
    EXPECT_TRUE(isUntouched());
}

TEST_P(Streams, output_that_takes_nothing_is_told)
{
    for (const auto &before :
         {closed({1}), std::function(writeToFullDisk), std::function(writeToNobody)})
        EXPECT_TRUE(failedWith(
            run({.arguments = toStandardOutput(), .input = smallGraph(), .before = before}),
            outputMessage));
    EXPECT_EQ(fileContent(output()), oldContent);
}

TEST_P(Streams, closed_ones_are_not_needed_for_files)
{
    writeFile(u"in.dot"_s, smallGraph());
    EXPECT_TRUE(succeeded(
        run({.arguments = arguments() + QStringList(u"in.dot"_s), .before = closed({0, 1, 2})})));
    EXPECT_EQ(fileContent(output()), drawing(smallGraph()));
    EXPECT_EQ(fileContent(u"in.dot"_s), smallGraph());
}

TEST_P(Streams, message_that_nobody_hears_leaves_what_stood_there)
{
    const ProgramRun failed =
        run({.arguments = arguments(), .input = "digraph {", .before = closed({1, 2})});
    EXPECT_EQ(failed.status, 1);
    EXPECT_TRUE(isUntouched());
}
