#include "output/output_text.h"

namespace ORR::Graph {

OutputText::OutputText(const QString &fileName) : file(std::make_unique<QFile>(fileName))
{
    // The blocks are buffer enough, and without another one each failure shows at its own write.
    constexpr QIODevice::OpenMode mode =
        QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered;
    if (fileName.isEmpty() || !file->open(mode))
        file.reset();
}

OutputText::OutputText(QByteArray *target) : buffer(target)
{
    if (buffer)
        buffer->clear();
}

OutputText::~OutputText()
{
    flush();
}

bool OutputText::flush()
{
    handOn({block.get(), used});
    used = 0;
    return isOpen() && !failed;
}

OutputText &OutputText::appendLong(QByteArrayView text)
{
    flush();
    if (text.size() > room())
        handOn(text);
    else
        *this << text;
    return *this;
}

void OutputText::handOn(QByteArrayView text)
{
    if (buffer)
        buffer->append(text);
    else if (file && !failed)
        failed = file->write(text.data(), text.size()) != text.size();
}

} // namespace ORR::Graph
