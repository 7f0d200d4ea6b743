// Outputs that take less than everything.
#include "faults/fault_run.h"
#include "support/golden.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Disk = FaultTest;

ORR_FOR_EACH_FORMAT(Disk);

// Where the disk may be full: at each block of the output's buffer, in between, and at the last
// byte.
QList<qint64> stoppingPoints(qint64 size)
{
    QList<qint64> points{0, 1, 4096, 65536, size / 3, size / 2, size - 4096, size - 1};
    points.removeIf([size](qint64 point) { return point < 0 || point >= size; });
    return points;
}

} // namespace

TEST_P(Disk, full_at_any_point_leaves_what_stood_there)
{
    const QByteArray graph = largeGraph(700);
    const QByteArray whole = drawing(graph);
    const QList<qint64> points = stoppingPoints(whole.size());
    ASSERT_GE(points.size(), 5);
    for (const qint64 point : points) {
        EXPECT_TRUE(failedWith(run({.arguments = arguments(),
                                    .input = graph,
                                    .before = limited(RLIMIT_FSIZE, rlim_t(point))}),
                               writeMessage()))
            << "at byte " << point;
        EXPECT_TRUE(isUntouched()) << "at byte " << point;
    }
    EXPECT_TRUE(succeeded(run({.arguments = arguments(),
                               .input = graph,
                               .before = limited(RLIMIT_FSIZE, rlim_t(whole.size()))})));
    EXPECT_EQ(fileContent(output()), whole);
}

TEST_P(Disk, full_at_any_point_leaves_no_new_file)
{
    ASSERT_TRUE(QFile::remove(path(output())));
    const QByteArray graph = smallGraph();
    const QList<qint64> points = stoppingPoints(drawing(graph).size());
    ASSERT_GE(points.size(), 4);
    for (const qint64 point : points) {
        EXPECT_TRUE(failedWith(run({.arguments = arguments(),
                                    .input = graph,
                                    .before = limited(RLIMIT_FSIZE, rlim_t(point))}),
                               writeMessage()))
            << "at byte " << point;
        EXPECT_EQ(allFiles(), QStringList()) << "at byte " << point;
    }
}

TEST_P(Disk, full_for_the_temporary_file_of_standard_output)
{
    EXPECT_TRUE(failedWith(run({.arguments = toStandardOutput(),
                                .input = smallGraph(),
                                .before = limited(RLIMIT_FSIZE, 100)}),
                           writeMessage()));
    EXPECT_EQ(allFiles().size(), 2) << "the temporary file stays";
}

TEST_P(Disk, device_that_is_full_is_told)
{
    // The link brings the suffix that a picture asks for.
    ASSERT_TRUE(QFile::remove(path(output())));
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, path(output())));
    EXPECT_TRUE(failedWith(run({.arguments = arguments(), .input = smallGraph()}), writeMessage()));
    EXPECT_EQ(QFile::symLinkTarget(path(output())), u"/dev/full"_s);
}
