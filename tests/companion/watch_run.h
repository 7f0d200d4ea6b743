#pragma once

#include "driver/program_run.h"

#include <QProcess>

// Calls `orr watch`, the real program, in a folder of the test's own. What it says is waited for,
// far longer than it takes, so that no test depends on how fast the machine is.
class WatchTest : public ProgramTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    // The program at work. A shell may start it as $0.
    void start(const QStringList &arguments, const QString &shell = {});
    // Ends it by a signal, which it must be by.
    void end(int signal);

    // Waits until this stands so many times in what it has said on standard error, or printed on
    // standard output.
    testing::AssertionResult says(const QByteArray &text, int times = 1);
    testing::AssertionResult prints(const QByteArray &text, int times = 1);
    // Waits until the drawing is there and holds the text.
    testing::AssertionResult shows(const QString &drawing, const QByteArray &text);
    // How many drawings it has told of.
    qsizetype drawn() const { return errors.count(" drawn in "); }

    // Writes the file as a whole, by another name that is given to it then.
    void replaceFile(const QString &name, const QByteArray &bytes) const;
    // A graph with that label in it.
    static QByteArray labelled(const QByteArray &label);
    // A graph that keeps a worker busy for seconds.
    static QByteArray slowGraph();

    // The processes that it has started.
    QList<qint64> children() const;
    // Names of all files in the folder, also the hidden ones.
    QStringList allFiles() const;

    // Whether it comes true while what the program says is read.
    testing::AssertionResult waitFor(const std::function<bool()> &condition);

    QProcess program;
    QByteArray errors;
    QByteArray output;

private:
    void listen();
};
