#include "device/xdot_reader.h"

#include "graph/numbers.h"

#include <algorithm>
#include <cmath>

namespace ORR::Graph::Graphviz {

namespace {

bool isOp(QByteArrayView word)
{
    return word.size() == 1 && QByteArrayView("BbCcDdEeFHILPpST").contains(word.front());
}

bool isNumber(QByteArrayView word)
{
    bool is = false;
    const double number = word.toDouble(&is);
    return is && std::isfinite(number);
}

} // namespace

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
    if (atEnd())
        return '\0';
    if (listener) {
        formerOp = op;
        op = {text.at(position), base + position, position == 0 || text.at(position - 1) == ' '};
    }
    return text.at(position++);
}

void XDotReader::tellUnknownOp()
{
    if (!listener)
        return;
    const OpPlace unknown = op;
    op = formerOp;
    listener->opFaultFound({OpFault::Cause::UnknownOp, unknown.offset, unknown.offset + 1, 0, 0, op,
                            unknown.followsBlank});
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
        listener->opFaultFound({cause, base + start, base + position, stated, there, op});
}

void XDotReader::tellNoNumber(QByteArrayView word) const
{
    if (!listener)
        return;
    if (counted && isOp(word))
        tell(OpFault::Cause::MissingPoints, counted->place, counted->stated, counted->there);
    else
        tell(word.isEmpty() ? OpFault::Cause::MissingNumber : OpFault::Cause::NotANumber,
             position - word.size());
}

double XDotReader::real()
{
    const QByteArrayView digits = word();
    if (listener && !isNumber(digits))
        tellNoNumber(digits);
    return numberFrom(digits);
}

int XDotReader::integer()
{
    const QByteArrayView digits = word();
    const bool isFraction = digits.contains('.');
    bool isWhole = false;
    const int number = isFraction ? 0 : digits.toInt(&isWhole);
    if (listener && !isWhole && !(isFraction && isNumber(digits)))
        tellNoNumber(digits);
    return isFraction ? rounded(numberFrom(digits)) : number;
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
