#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>

// How the real program is called.
struct ProgramCall
{
    QStringList arguments = {};
    QByteArray input = {}; // standard input
    QList<QPair<QString, QString>> environment = {}; // set; a null value takes a variable away
    std::function<void()> before = {}; // what the new process does before it becomes the program
    QString command = {}; // in place of the program
};

// What came of it.
struct ProgramRun
{
    int status = -1; // of the exit; -1 for a crash or a run that takes too long
    QByteArray output;
    QByteArray errors;
};

// The texts of the failures.
inline constexpr char inputFileMessage[] = "Unable to open input file\n";
inline constexpr char inputMessage[] = "Unable to read from stdin\n";
inline constexpr char parseMessage[] = "Unable to parse dot input\n";
inline constexpr char formatMessage[] =
    "Output format could not be determined or is not supported.\n"
    " Use -T provide a render engine or provide an output file name with a supported "
    "extension.\n\n";
inline constexpr char temporaryFileMessage[] = "Unable to create temporary file\n";
inline constexpr char layoutMessage[] =
    "Layout required and layout engine not provided/available.\n\n";
inline constexpr char outputMessage[] = "Unable to write to stdout\n";

// Calls the real program with the pinned fonts, from and with a temporary directory of the test's
// own, which is empty when the test starts.
class ProgramTest : public testing::Test
{
protected:
    ProgramRun run(const ProgramCall &call) const;
    // The program draws the graph on standard output.
    ProgramRun draw(const QByteArray &graph, const QString &format = QStringLiteral("xdot1.2"),
                    const QString &engine = QStringLiteral("treemap")) const;

    QString path(const QString &name) const { return folder.filePath(name); }
    void writeFile(const QString &name, const QByteArray &bytes) const;
    QByteArray fileContent(const QString &name) const;
    // The names of the files that lie there now.
    QStringList files() const;

    // What the program prints for -h.
    QByteArray helpText() const;

private:
    QTemporaryDir folder;
};

// A run that succeeded and printed nothing but its drawing.
testing::AssertionResult succeeded(const ProgramRun &run);
// A run that failed with just this on standard error and nothing on standard output.
testing::AssertionResult failedWith(const ProgramRun &run, const QByteArray &message);

// A small graph that every engine draws.
QByteArray smallGraph();
