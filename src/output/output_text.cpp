#include "output/output_text.h"

namespace ORR::Graph {

OutputText::OutputText(const QString &fileName) : file(std::make_unique<OutputFile>(fileName)) { }

OutputText::OutputText(QByteArray *target) : buffer(target)
{
    if (buffer)
        buffer->clear();
}

OutputText::~OutputText()
{
    if (buffer)
        flush();
}

bool OutputText::flush()
{
    handOn({block.get(), used});
    used = 0;
    return isOpen() && !failed;
}

bool OutputText::finish()
{
    return flush() && (buffer || file->commit());
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
        failed = !file->write(text);
}

} // namespace ORR::Graph
