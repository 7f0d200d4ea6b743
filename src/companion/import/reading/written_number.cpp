#include "companion/import/reading/written_number.h"

#include "companion/findings/quoted_text.h"
#include "graph/decimal.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// So many digits fit an integer that a double holds exactly.
constexpr qsizetype exactDigits = 15;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

qsizetype pastDigits(QByteArrayView text, qsizetype from)
{
    while (from < text.size() && isDigit(text[from]))
        ++from;
    return from;
}

qsizetype pastSign(QByteArrayView text, qsizetype from)
{
    return from < text.size() && (text[from] == '-' || text[from] == '+') ? from + 1 : from;
}

bool isNumber(QByteArrayView text)
{
    const qsizetype start = pastSign(text, 0);
    qsizetype end = pastDigits(text, start);
    qsizetype digits = end - start;
    if (end < text.size() && text[end] == '.') {
        const qsizetype fraction = end + 1;
        end = pastDigits(text, fraction);
        digits += end - fraction;
    }
    if (digits > 0 && end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        const qsizetype exponent = pastSign(text, end + 1);
        end = pastDigits(text, exponent);
        if (end == exponent)
            return false;
    }
    return digits > 0 && end == text.size();
}

// The value of a digit of any base up to 16; 16 if it is none.
int digitValue(char c)
{
    if (isDigit(c))
        return c - '0';
    const char small = char(c | 0x20);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : 16;
}

} // namespace

std::optional<double> writtenNumber(QByteArrayView written)
{
    if (written.size() <= exactDigits && !written.isEmpty()) {
        qint64 value = 0;
        qsizetype digits = 0;
        for (; digits < written.size() && isDigit(written[digits]); ++digits)
            value = 10 * value + (written[digits] - '0');
        if (digits == written.size())
            return double(value);
    }
    if (!isNumber(written))
        return std::nullopt;
    return Graph::numberFrom(written.startsWith('+') ? written.sliced(1) : written);
}

std::optional<double> writtenWeight(QByteArrayView written, QString *why)
{
    const std::optional<double> number = writtenNumber(written);
    if (number && *number >= 0 && std::isfinite(*number))
        return number;
    const QString shown = quotedText(written);
    if (!number)
        *why = shown + u" is no number"_s;
    else
        *why = shown + (*number < 0 ? u" is below 0"_s : u" is too large for a number"_s);
    return std::nullopt;
}

std::optional<double> writtenAmount(QByteArrayView text)
{
    const std::optional<double> number = writtenNumber(text);
    return number && *number >= 0 && std::isfinite(*number) ? number : std::nullopt;
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
    return std::isfinite(size) ? std::optional(size) : std::nullopt;
}

} // namespace ORR::Companion
