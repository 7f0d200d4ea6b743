// Outputs that take less than everything.
#include "faults/fault_run.h"
#include "support/golden.h"

#include <QFile>

#include <algorithm>

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

// Some fifty points in equal steps, and each of the last bytes.
QList<qint64> manyStoppingPoints(qint64 size)
{
    constexpr qint64 steps = 50;
    constexpr qint64 lastBytes = 4;
    QList<qint64> points;
    for (qint64 point = 0; point < size - lastBytes; point += std::max<qint64>(1, size / steps))
        points.append(point);
    for (qint64 point = size - lastBytes; point < size; ++point)
        points.append(point);
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
    const QList<qint64> points = manyStoppingPoints(drawing(graph).size());
    ASSERT_GE(points.size(), 50);
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

// Disks of the right size, where there may be such: one has no room for a second file, the other
// none for a second name.
TEST_P(Disk, real_one_that_is_full_leaves_what_stood_there)
{
    const auto drawOn = [&](const QString &disk) {
        const QString script =
            u"mkdir -p disk; mount -t tmpfs -o %1 none disk || exit 77; cp \"out.$1\" disk/; "
            "\"$0\" -K treemap -T \"$1\" -o \"disk/out.$1\"; status=$?; "
            "cmp \"out.$1\" \"disk/out.$1\" || exit 78; "
            "test $(ls -A disk | wc -l) = 1 || exit 79; exit $status"_s.arg(disk);
        return runMounted(script, largeGraph(700));
    };
    const auto withoutRoom = drawOn(u"size=12k"_s);
    if (!withoutRoom)
        GTEST_SKIP() << "nothing can be mounted here";
    EXPECT_TRUE(failedWith(*withoutRoom, writeMessage()));
    const auto withoutNames = drawOn(u"nr_inodes=2"_s);
    ASSERT_TRUE(withoutNames);
    EXPECT_TRUE(failedWith(*withoutNames, openMessage()));
}
