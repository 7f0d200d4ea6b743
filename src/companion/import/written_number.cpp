#include "companion/import/written_number.h"

#include "graph/decimal.h"

namespace ORR::Companion {

namespace {

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

// How many digits there are from a place on.
qsizetype digitsAt(QByteArrayView text, qsizetype place)
{
    qsizetype end = place;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    return end - place;
}

bool isSign(QByteArrayView text, qsizetype place)
{
    return place < text.size() && (text[place] == '-' || text[place] == '+');
}

// The value of a digit of any base up to 16; 16 if it is none.
int digitValue(char character)
{
    if (isDigit(character))
        return character - '0';
    const char small = char(character | 0x20);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : 16;
}

} // namespace

std::optional<double> writtenNumber(QByteArrayView text)
{
    qsizetype place = isSign(text, 0) ? 1 : 0;
    qsizetype digits = digitsAt(text, place);
    place += digits;
    if (place < text.size() && text[place] == '.') {
        const qsizetype decimals = digitsAt(text, ++place);
        place += decimals;
        digits += decimals;
    }
    if (digits == 0)
        return std::nullopt;
    if (place < text.size() && (text[place] | 0x20) == 'e') {
        place += isSign(text, place + 1) ? 2 : 1;
        const qsizetype exponent = digitsAt(text, place);
        if (exponent == 0)
            return std::nullopt;
        place += exponent;
    }
    if (place != text.size())
        return std::nullopt;
    return Graph::numberFrom(text.startsWith('+') ? text.sliced(1) : text);
}

std::optional<double> writtenAmount(QByteArrayView text)
{
    const std::optional<double> number = writtenNumber(text);
    return number && *number >= 0 ? number : std::nullopt;
}

std::optional<double> writtenSize(QByteArrayView text)
{
    int base = 10;
    if (text.startsWith("0x")) {
        base = 16;
        text = text.sliced(2);
    } else if (text.startsWith('0') && text.size() > 1) {
        base = 8;
        text = text.sliced(1);
    }
    if (text.isEmpty())
        return std::nullopt;
    double size = 0;
    for (const char character : text) {
        const int digit = digitValue(character);
        if (digit >= base)
            return std::nullopt;
        size = size * base + digit;
    }
    return size;
}

} // namespace ORR::Companion
