#include "output/output_text.h"

#include "output/number_bytes.h"

namespace ORR::Graph {

namespace {

constexpr qsizetype blockSize = 64 * 1024;
// What one more piece may add to a block before it is handed on.
constexpr qsizetype pieceRoom = 4 * 1024;

} // namespace

OutputText::OutputText(const QString &fileName) : file(std::make_unique<QFile>(fileName))
{
    // The blocks are buffer enough, and without another one each failure shows at its own write.
    constexpr QIODevice::OpenMode mode =
        QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered;
    if (!file->open(mode))
        file.reset();
    pending.reserve(blockSize + pieceRoom);
}

OutputText::OutputText(QByteArray *target) : buffer(target)
{
    if (buffer)
        buffer->clear();
    pending.reserve(blockSize + pieceRoom);
}

OutputText::~OutputText()
{
    flush();
}

OutputText &OutputText::operator<<(QByteArrayView text)
{
    pending.append(text);
    handOnIfLarge();
    return *this;
}

OutputText &OutputText::operator<<(int value)
{
    appendNumber(pending, value);
    handOnIfLarge();
    return *this;
}

OutputText &OutputText::operator<<(double value)
{
    appendNumber(pending, value);
    handOnIfLarge();
    return *this;
}

bool OutputText::flush()
{
    if (buffer)
        buffer->append(pending);
    else if (file && !failed)
        failed = file->write(pending) != pending.size();
    pending.resize(0);
    return isOpen() && !failed;
}

void OutputText::handOnIfLarge()
{
    if (pending.size() >= blockSize)
        flush();
}

} // namespace ORR::Graph
