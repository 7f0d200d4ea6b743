#pragma once

#include "output/output_file.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

namespace ORR::Graph {

// Where a drawing goes: a file or memory. A device writes to either in the same way.
class OutputTarget
{
public:
    // A file, which appears whole or not at all. fileName: as `fileNameText` gives it.
    OutputTarget(const QString &fileName) // NOLINT(google-explicit-constructor)
        : outputName(fileName)
    {
    }
    // Memory, in place of what stood there; no file is opened. The bytes are not owned and complete
    // only once the output is; null is an output that can't be opened. name: that of a file with
    // the same content, for what is told from its suffix.
    OutputTarget(QByteArray *bytes, const QString &name = {}) // NOLINT(google-explicit-constructor)
        : outputName(name), memory(bytes), isMemory(true)
    {
    }

    const QString &name() const { return outputName; }

private:
    friend class Output;

    QString outputName;
    QByteArray *memory = nullptr;
    bool isMemory = false;
};

// What is written to a target, from its first byte on. See `OutputFile` for what happens to a file.
class Output
{
public:
    // Opens the target.
    explicit Output(const OutputTarget &target);
    // Without a `commit` that succeeded, what is in memory is empty.
    ~Output();
    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;

    // Whether it can be written and has not been committed yet.
    bool isOpen() const { return memory || (file && file->isOpen()); }

    // False if not every byte arrived, now or earlier.
    bool write(QByteArrayView bytes);

    // Completes and closes it. False if anything that was written has not arrived.
    bool commit();

private:
    std::optional<OutputFile> file;
    QByteArray *memory = nullptr;
};

// Writes all of an output, in place of what stood there. False if it can't be opened or if not
// every byte arrived; what stood in a file then stays.
bool writeOutput(const OutputTarget &target, QByteArrayView bytes);

} // namespace ORR::Graph
