#include "output/output_file.h"

#include "support/golden.h"

#include <QTemporaryDir>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

TEST(OutputFile, holds_the_bytes_in_place_of_what_stood_there)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(u"a"_s);
    EXPECT_TRUE(writeOutputFile(name, QByteArray(1000, 'x')));
    EXPECT_TRUE(writeOutputFile(name, "a\n\0b"_ba));
    EXPECT_EQ(readTestFile(name), "a\n\0b"_ba);
    EXPECT_TRUE(writeOutputFile(name, QByteArray()));
    EXPECT_EQ(readTestFile(name), QByteArray());
}

TEST(OutputFile, one_that_cannot_be_opened_fails)
{
    const QTemporaryDir folder;
    EXPECT_FALSE(writeOutputFile(folder.path(), "a"));
    EXPECT_FALSE(writeOutputFile(folder.filePath(u"no/a"_s), "a"));
    EXPECT_FALSE(writeOutputFile(QString(), "a"));
}

TEST(OutputFile, a_full_disk_fails)
{
    EXPECT_FALSE(writeOutputFile(u"/dev/full"_s, "a"));
    EXPECT_FALSE(writeOutputFile(u"/dev/full"_s, QByteArray(1000000, 'x')));
}
