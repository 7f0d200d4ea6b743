#pragma once

#include "driver/program_run.h"
#include "output/files/descriptor.h"

#include <QJsonObject>
#include <QProcess>

#include <memory>

// Calls `orr draw`, the real program, with these files beside it: good.dot, faulty.dot, and
// waits.dot, a pipe that nobody writes to, so that whoever draws it waits for ever.
class DrawTest : public ProgramTest
{
protected:
    void SetUp() override;

    ProgramRun drawMany(const QStringList &arguments, const QByteArray &input = {}) const;
    // A shell runs the command with the program as $0.
    ProgramRun shell(const QString &command) const;

    // The program at work, with its standard error to be read.
    std::unique_ptr<QProcess> start(const QStringList &arguments) const;
    // Waits until a worker reads the pipe, and gives the end that keeps it waiting.
    ORR::Graph::Descriptor waitForWorker() const;
    // The processes that it has started.
    static QList<qint64> workersOf(const QProcess &program);

    // What `orrlayout` draws, with a process of its own.
    QByteArray drawnAlone(const QString &file, const QString &engine, const QString &format) const;

    // All names in the folder but those of SetUp, also the hidden ones.
    QStringList newFiles() const;
};

// Lines of JSON, each an object.
QList<QJsonObject> jsonLines(const QByteArray &text);
