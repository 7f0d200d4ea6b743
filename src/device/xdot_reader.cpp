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

void XDotReader::tell(OpFault::Cause cause, qsizetype start, qint64 stated, qint64 there) const
{
    if (listener)
        listener->opFaultFound({cause, base + start, base + position, stated, there});
}

void XDotReader::tellNumber(QByteArrayView word, bool whole) const
{
    bool isNumber = false;
    if (whole && !word.contains('.'))
        (void)word.toInt(&isNumber);
    else
        (void)word.toDouble(&isNumber);
    if (!isNumber)
        tell(word.isEmpty() ? OpFault::Cause::MissingNumber : OpFault::Cause::NotANumber,
             position - word.size());
}

double XDotReader::real()
{
    const QByteArrayView digits = word();
    if (listener)
        tellNumber(digits, false);
    return numberFrom(digits);
}

int XDotReader::integer()
{
    const QByteArrayView digits = word();
    if (listener)
        tellNumber(digits, true);
    return digits.contains('.') ? rounded(numberFrom(digits)) : digits.toInt();
}

// What the length that ends here says of the text behind the dash.
void XDotReader::tellLength(QByteArrayView word, int length, qsizetype dash) const
{
    using Cause = OpFault::Cause;
    const qsizetype start = position - word.size();
    const qsizetype left = dash < 0 ? 0 : text.size() - dash - 1;
    const auto endsText = [](char c) { return c == ' ' || c == ']' || c == ')' || c == '\n'; };
    if (dash < 0)
        tell(Cause::MissingDash, start);
    else if (length < 0)
        tell(Cause::NegativeCount, start, length);
    else if (length > left)
        tell(Cause::ShortText, start, length, left);
    else if (length < left && !endsText(text.at(dash + 1 + length)))
        tell(Cause::LongText, start, length);
}

QByteArrayView XDotReader::countedBytes()
{
    const qsizetype start = nextPlace();
    const int length = integer();
    const qsizetype dash = text.indexOf('-', position);
    if (listener)
        tellLength(text.sliced(start, position - start), length, dash);
    position = dash < 0 ? text.size() : dash + 1;
    const qsizetype taken = std::clamp<qsizetype>(length, 0, text.size() - position);
    const QByteArrayView bytes = text.sliced(position, taken);
    position += taken;
    return bytes;
}

} // namespace ORR::Graph::Graphviz
