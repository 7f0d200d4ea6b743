#pragma once

#include "driver/program_run.h"

#include <QProcess>

#include <memory>
#include <optional>
#include <vector>

#include <sys/resource.h>

// What stands in the output file before a run.
inline constexpr char oldContent[] = "what stood there\n";

// A treemap of so many nodes, enough to keep the program busy for a while.
QByteArray largeGraph(int nodes);

// What the new process does before it becomes the program: it limits itself, or closes descriptors.
std::function<void()> limited(__rlimit_resource resource, rlim_t limit);
std::function<void()> closed(const QList<int> &descriptors);

// Calls the real program for one format, the test's parameter, with an output file that holds
// something already.
class FaultTest : public ProgramTest, public testing::WithParamInterface<const char *>
{
protected:
    void SetUp() override;

    QString format() const { return QString::fromLatin1(GetParam()); }
    QString output() const { return QStringLiteral("out.") + format(); }

    // The arguments of a treemap in the format, to the output file or another.
    QStringList arguments() const { return arguments(output()); }
    QStringList arguments(const QString &file) const;
    QStringList toStandardOutput() const;

    // The drawing as it is when nothing goes wrong.
    QByteArray drawing(const QByteArray &graph) const;
    // What the device says of an output that takes less than everything, and of one that can't be
    // opened.
    QByteArray writeMessage() const;
    QByteArray openMessage() const;

    // The program with the arguments, called by a shell that does something before. The script has
    // the program as "$0", the format as "$1" and file systems of its own to mount; it ends with
    // status 77 if it could not. Nothing if that is so.
    std::optional<ProgramRun> runMounted(const QString &script, const QByteArray &graph) const;

    // The program at work on the graph, in the folder of the test.
    std::unique_ptr<QProcess> start(const QStringList &arguments, const QByteArray &graph,
                                    const std::function<void()> &before = {}) const;
    // Waits until there is a file whose name begins so. False if that takes too long.
    bool waitForFile(const QString &beginning) const;
    // All names in the folder, also the hidden ones.
    QStringList allFiles() const;

    // The output file is as it was, and nothing else is there.
    testing::AssertionResult isUntouched() const;
};

// A format's name as it can stand in that of a test.
std::string formatOfTest(const testing::TestParamInfo<const char *> &test);

// The names of the formats in the table.
std::vector<const char *> formatsOfTests();

// The tests of a class for each of them.
#define ORR_FOR_EACH_FORMAT(Class)                                                                 \
    INSTANTIATE_TEST_SUITE_P(Formats, Class, testing::ValuesIn(formatsOfTests()), formatOfTest)
