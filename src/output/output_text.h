#pragma once

#include "graph/decimal.h"
#include "output/output_file.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <algorithm>
#include <memory>

namespace ORR::Graph {

// The text of an output file, written piece by piece and handed on in large blocks, so that a
// drawing of any size takes no memory to speak of. Everything is UTF-8. After a write that failed
// the rest is dropped.
class OutputText
{
public:
    // To a file, which appears with `finish`.
    explicit OutputText(const QString &fileName);
    // To memory, in place of what stood there. The buffer is not owned and is complete after
    // `flush`.
    explicit OutputText(QByteArray *buffer);
    // A buffer gets what is still held. A file that is not finished is none.
    ~OutputText();
    OutputText(const OutputText &) = delete;
    OutputText &operator=(const OutputText &) = delete;

    // Whether there is anything to write to. If not, what is written is dropped.
    bool isOpen() const { return buffer || (file && file->isOpen()); }

    OutputText &operator<<(QByteArrayView text)
    {
        if (text.size() > room())
            return appendLong(text);
        std::copy(text.cbegin(), text.cend(), block.get() + used);
        used += text.size();
        return *this;
    }
    OutputText &operator<<(int value) { return appendNumber(value); }
    OutputText &operator<<(double value) { return appendNumber(value); } // as `numberText`

    // Hands on everything written so far. False if any of it has not arrived.
    bool flush();

    // Does so for the last time. A file takes the place of what stood there, and is closed. False
    // if any of it has not arrived.
    bool finish();

private:
    static constexpr qsizetype blockSize = qsizetype(64) * 1024;

    qsizetype room() const { return blockSize - used; }
    OutputText &appendLong(QByteArrayView text);
    void handOn(QByteArrayView text);

    template <typename Number>
    OutputText &appendNumber(Number value)
    {
        if (room() < longestNumber)
            flush();
        used = writeNumber(block.get() + used, value) - block.get();
        return *this;
    }

    std::unique_ptr<OutputFile> file;
    QByteArray *buffer = nullptr;
    std::unique_ptr<char[]> block = std::make_unique<char[]>(blockSize);
    qsizetype used = 0;
    bool failed = false;
};

} // namespace ORR::Graph
