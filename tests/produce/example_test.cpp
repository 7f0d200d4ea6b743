#include "support/golden.h"

#include <gtest/gtest.h>

#include <QProcess>

using namespace Qt::StringLiterals;

// The example of a producer: what it writes of a text that lies beside it.
TEST(ProducerExample, writes_the_map_of_a_text)
{
    const QString folder = QStringLiteral(ORR_EXAMPLE_FOLDER);
    QProcess program;
    program.setStandardInputFile(folder + "/words.txt"_L1);
    program.start(QStringLiteral(ORR_WORD_MAP), {u"treemap"_s});
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(program.readAllStandardError(), QByteArray());
    EXPECT_TRUE(matchesGolden(program.readAllStandardOutput(),
                              QStringLiteral(ORR_TEST_FOLDER "/words.dot")));
}
