#include "companion/import/stated_number.h"

#include "companion/findings/quoted_text.h"
#include "graph/decimal.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// So many digits fit an integer that a double holds exactly.
constexpr qsizetype exactDigits = 15;

bool isStatedDigit(char c)
{
    return c >= '0' && c <= '9';
}

qsizetype pastDigits(QByteArrayView text, qsizetype from)
{
    while (from < text.size() && isStatedDigit(text[from]))
        ++from;
    return from;
}

qsizetype pastSign(QByteArrayView text, qsizetype from)
{
    return from < text.size() && (text[from] == '-' || text[from] == '+') ? from + 1 : from;
}

bool isStatedNumber(QByteArrayView text)
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

} // namespace

std::optional<double> statedNumber(QByteArrayView written)
{
    if (written.size() <= exactDigits && !written.isEmpty()
        && pastDigits(written, 0) == written.size()) {
        qint64 value = 0;
        for (const char digit : written)
            value = 10 * value + (digit - '0');
        return double(value);
    }
    if (!isStatedNumber(written))
        return std::nullopt;
    return Graph::numberFrom(written.startsWith('+') ? written.sliced(1) : written);
}

std::optional<double> statedWeight(QByteArrayView written, QString *why)
{
    const std::optional<double> number = statedNumber(written);
    if (number && *number >= 0 && std::isfinite(*number))
        return number;
    const QString shown = quotedText(written);
    if (!number)
        *why = shown + u" is no number"_s;
    else
        *why = shown + (*number < 0 ? u" is below 0"_s : u" is too large for a number"_s);
    return std::nullopt;
}

} // namespace ORR::Companion
