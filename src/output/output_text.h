#pragma once

#include "graph/decimal.h"
#include "output/output.h"

#include <QByteArray>
#include <QByteArrayView>

#include <algorithm>
#include <memory>

namespace ORR::Graph {

// The text of an output, written piece by piece and handed on in large blocks, so that a
// drawing of any size takes no memory to speak of. Everything is UTF-8. After a write that failed
// the rest is dropped.
class OutputText
{
public:
    // Complete with `finish` only.
    explicit OutputText(const OutputTarget &target) : output(target) { }

    // Whether there is anything to write to. If not, what is written is dropped.
    bool isOpen() const { return output.isOpen(); }

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

    // Hands on what is still held, and completes and closes the output. False if anything that was
    // written has not arrived.
    bool finish();

private:
    static constexpr qsizetype blockSize = qsizetype(64) * 1024;

    qsizetype room() const { return blockSize - used; }
    OutputText &appendLong(QByteArrayView text);
    void flush();
    void handOn(QByteArrayView text);

    template <typename Number>
    OutputText &appendNumber(Number value)
    {
        if (room() < longestNumber)
            flush();
        used = writeNumber(block.get() + used, value) - block.get();
        return *this;
    }

    Output output;
    std::unique_ptr<char[]> block = std::make_unique<char[]>(blockSize);
    qsizetype used = 0;
};

} // namespace ORR::Graph
