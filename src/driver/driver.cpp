#include "driver/driver.h"

#include "drawing/held_standard_error.h"
#include "drawing/job.h"
#include "drawing/toolkit.h"
#include "graph/limits.h"
#include "graph/message_text.h"
#include "output/files/descriptor.h"
#include "output/files/file_name.h"
#include "output/files/unfinished_file.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryFile>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <optional>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ORR::Driver {

namespace {

int fail(const QString &message)
{
    std::fputs(Graph::printableMessage(message).toLocal8Bit().constData(), stderr);
    return EXIT_FAILURE;
}

// All of the input, or nothing once the failure has been told.
std::optional<QByteArray> readInput(const CommandLine &commandLine, const StandardStreams &streams,
                                    Graph::Descriptor *inputFile)
{
    std::optional<QByteArray> bytes;
    if (commandLine.hasInputFile) {
        const QByteArray name = Graph::fileNameBytes(commandLine.inputFile);
        *inputFile = Graph::Descriptor(::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
        if (*inputFile)
            bytes = readToEnd(inputFile->number(), Graph::Limits::longestInput);
        if (!bytes)
            fail(u"Unable to open input file\n"_s);
        return bytes;
    }
    if (streams.input)
        bytes = readToEnd(STDIN_FILENO, Graph::Limits::longestInput);
    if (!bytes)
        fail(u"Unable to read from stdin\n"_s);
    return bytes;
}

// The graph lives to the end of the process: to take it apart would only delay that. It stays
// within reach, so that no leak checker takes it for lost.
Graph::DotGraph *keepForever(std::unique_ptr<Graph::DotGraph> graph)
{
    static auto *const kept = new std::vector<Graph::DotGraph *>;
    kept->push_back(graph.release());
    return kept->back();
}

bool isHtmlWanted()
{
    return QProcess::systemEnvironment().contains(u"ORR_GVLAYOUT_USE_HTML=1"_s);
}

// The file that stands in for standard output. It stays if the run fails.
struct StandIn
{
    QTemporaryFile file;
    Graph::UnfinishedFile unfinished;
};

// Makes a file for the device to write, with a name of its own, and gives the name; nothing if it
// can't be made.
std::optional<QString> makeTemporaryFile(Drawing::Format format, StandIn *standIn)
{
    QTemporaryFile *const file = &standIn->file;
    file->setAutoRemove(false);
    // A TMPDIR that is not there; the working directory would stand in for it.
    if (QDir::tempPath().isEmpty())
        return std::nullopt;
    const QString nameTemplate = u"orr_orrlayout_XXXXXX.%1"_s.arg(Drawing::formatRow(format).name);
    file->setFileTemplate(QDir::temp().filePath(nameTemplate));
    const Graph::HeldSignals held;
    if (!file->open())
        return std::nullopt;
    const QString name = file->fileName();
    standIn->unfinished = Graph::UnfinishedFile(AT_FDCWD, QFile::encodeName(name));
    file->close();
    return name;
}

Drawing::Outcome draw(const Drawing::Job &job, Graph::DotGraph *graph, const QString &outputFile)
{
#ifndef __SANITIZE_ADDRESS__
    // The libraries of pictures complain there about those that an input holds.
    const Drawing::HeldStandardError held;
#endif
    return Drawing::drawGraph(job, graph, outputFile);
}

// A temporary file that is no longer there leaves standard output empty, and is no failure.
bool copyToStandardOutput(const QString &fileName, const StandardStreams &streams)
{
    if (!streams.output)
        return false;
    QFile file(fileName);
    if (file.open(QIODevice::ReadOnly) && !writeToEnd(STDOUT_FILENO, file.readAll()))
        return false;
    QFile::remove(fileName);
    return true;
}

int run(const CommandLine &commandLine, const QString &homeDirectory,
        const StandardStreams &streams)
{
    Graph::Descriptor inputFile; // open to the end of the run
    const std::optional<QByteArray> input = readInput(commandLine, streams, &inputFile);
    if (!input)
        return EXIT_FAILURE;

    Drawing::Job job{.input = *input,
                     .engine = commandLine.layout,
                     .htmlLabels = isHtmlWanted(),
                     .homeDirectory = homeDirectory};
    Drawing::Reading reading = Drawing::readGraph(job);
    if (!reading.graph)
        return fail(reading.outcome.message);
    Graph::DotGraph *const graph = keepForever(std::move(reading.graph));

    const auto format = Drawing::chooseFormat(commandLine.format, commandLine.outputFile);
    if (!format)
        return fail(u"Output format could not be determined or is not supported.\n"
                    " Use -T provide a render engine or provide an output file name with a "
                    "supported extension.\n\n"_s
                    + commandLine.help);
    job.format = *format;

    if (const QString fault = Drawing::fontFault(); !fault.isEmpty())
        return fail(fault);

    StandIn standIn;
    const bool toStandardOutput = commandLine.outputFile.isEmpty();
    const std::optional<QString> outputFile = toStandardOutput
        ? makeTemporaryFile(*format, &standIn)
        : std::optional(commandLine.outputFile);
    if (!outputFile)
        return fail(u"Unable to create temporary file\n"_s);

    const Drawing::Outcome outcome = draw(job, graph, *outputFile);
    if (outcome.fault == Drawing::Outcome::Engine)
        return fail(outcome.message + commandLine.help);
    if (outcome.fault != Drawing::Outcome::None)
        return fail(outcome.message);
    if (toStandardOutput && !copyToStandardOutput(*outputFile, streams))
        return fail(u"Unable to write to stdout\n"_s);
    return EXIT_SUCCESS;
}

} // namespace

int runDriver(const CommandLine &commandLine, const QString &homeDirectory,
              const StandardStreams &streams)
try {
    return run(commandLine, homeDirectory, streams);
} catch (const std::bad_alloc &) {
    return fail(u"Out of memory\n"_s);
}

} // namespace ORR::Driver
