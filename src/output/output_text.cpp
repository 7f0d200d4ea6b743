#include "output/output_text.h"

namespace ORR::Graph {

bool OutputText::finish()
{
    flush();
    return output.commit();
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

void OutputText::flush()
{
    handOn({block.get(), used});
    used = 0;
}

// A write that failed fails the completion.
void OutputText::handOn(QByteArrayView text)
{
    output.write(text);
}

} // namespace ORR::Graph
