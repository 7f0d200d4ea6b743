#include "device/xdot_reader.h"

#include "graph/numbers.h"

#include <algorithm>

namespace ORR::Graph::Graphviz {

void XDotReader::skipBlanks()
{
    while (position < text.size() && text.at(position) == ' ')
        ++position;
}

bool XDotReader::atEnd()
{
    skipBlanks();
    return position == text.size();
}

char XDotReader::nextOp()
{
    return atEnd() ? '\0' : text.at(position++);
}

bool XDotReader::hasWord()
{
    return !atEnd() && text.at(position) != ',';
}

QByteArrayView XDotReader::word()
{
    skipBlanks();
    const qsizetype start = position;
    while (position < text.size() && text.at(position) != ' ' && text.at(position) != ',')
        ++position;
    return text.sliced(start, position - start);
}

double XDotReader::real()
{
    return numberFrom(word());
}

int XDotReader::integer()
{
    const QByteArrayView digits = word();
    return digits.contains('.') ? rounded(numberFrom(digits)) : digits.toInt();
}

QByteArrayView XDotReader::countedBytes()
{
    const int length = integer();
    const qsizetype dash = text.indexOf('-', position);
    position = dash < 0 ? text.size() : dash + 1;
    const qsizetype taken = std::clamp<qsizetype>(length, 0, text.size() - position);
    const QByteArrayView bytes = text.sliced(position, taken);
    position += taken;
    return bytes;
}

} // namespace ORR::Graph::Graphviz
