// More than one at the same file.
#include "faults/fault_run.h"
#include "support/golden.h"

using namespace Qt::StringLiterals;

namespace {

using Simultaneous = FaultTest;

ORR_FOR_EACH_FORMAT(Simultaneous);

} // namespace

TEST_P(Simultaneous, runs_to_one_output_leave_one_drawing_and_readers_see_no_other)
{
    const QByteArray first = largeGraph(1500);
    const QByteArray second = largeGraph(1400);
    const QByteArrayList whole{oldContent, drawing(first), drawing(second)};
    ASSERT_NE(whole.at(1), whole.at(2));
    for (int i = 0; i < 3; ++i) {
        const std::unique_ptr<QProcess> programs[]{start(arguments(), first),
                                                   start(arguments(), second)};
        int looks = 0;
        for (const auto &program : programs) {
            while (program->state() != QProcess::NotRunning) {
                program->waitForFinished(0);
                const QByteArray seen = fileContent(output());
                ASSERT_TRUE(whole.contains(seen)) << "a reader saw " << seen.size() << " bytes";
                ++looks;
            }
            EXPECT_EQ(program->exitCode(), 0);
        }
        EXPECT_GT(looks, 20);
        EXPECT_TRUE(whole.sliced(1).contains(fileContent(output())));
        EXPECT_EQ(allFiles(), QStringList(output()));
    }
}
