#include "graph/decimal.h"

#include "graph/numbers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <iterator>
#include <optional>

namespace ORR::Graph {

namespace {

constexpr int significantDigits = 6;
constexpr int beyondSixDigits = 1000000;

// Up to here a power of ten is exact as a double, and so is the product or the quotient of one and
// a number of up to 15 digits the double nearest to the decimal.
constexpr std::array<double, 23> powers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr qsizetype mostReadDigits = 15;

// A magnitude in six significant digits: digits / 10^decimals. The digits have no zero ahead;
// decimals below 0 stand for zeros behind them.
struct SixDigits
{
    int digits;
    int decimals;
};

// Nothing where the arithmetic leaves a doubt.
std::optional<SixDigits> sixDigits(double magnitude)
{
    constexpr double smallest = 1e-4;
    constexpr double largest = 1e12;
    if (!(magnitude >= smallest && magnitude < largest))
        return std::nullopt;
    int decimals = magnitude < 1.0 ? significantDigits + 3 : significantDigits - 1;
    double scaled = magnitude * powers[decimals];
    while (scaled >= beyondSixDigits) {
        --decimals;
        scaled = decimals >= 0 ? magnitude * powers[decimals] : magnitude / powers[-decimals];
    }
    const int digits = rounded(scaled);
    // The product carries an error of some 1e-10. That decides nothing, except near the middle of
    // two texts and where rounding adds a digit.
    const bool isDoubtful = std::fabs(scaled - std::floor(scaled) - 0.5) < 1e-6;
    if (isDoubtful || digits >= beyondSixDigits || digits < beyondSixDigits / 10)
        return std::nullopt;
    return SixDigits{digits, decimals};
}

char *writeSlowly(char *out, double value)
{
    const QByteArray text = QByteArray::number(value, 'g', significantDigits);
    return std::copy(text.cbegin(), text.cend(), out);
}

// Without the zeros at the end of the decimals, which are not below 0.
char *writeDecimal(char *out, SixDigits number)
{
    auto [digits, decimals] = number;
    while (decimals > 0 && digits % 10 == 0) {
        digits /= 10;
        --decimals;
    }
    std::array<char, longestNumber> text;
    const char *const textEnd = writeNumber(text.data(), digits);
    const auto wholeDigits = std::distance<const char *>(text.data(), textEnd) - decimals;
    if (decimals == 0)
        return std::copy<const char *>(text.data(), textEnd, out);
    if (wholeDigits <= 0) {
        *out++ = '0';
        *out++ = '.';
        out = std::fill_n(out, -wholeDigits, '0');
        return std::copy<const char *>(text.data(), textEnd, out);
    }
    const char *const point = std::next(text.data(), wholeDigits);
    out = std::copy<const char *>(text.data(), point, out);
    *out++ = '.';
    return std::copy(point, textEnd, out);
}

char16_t unitOf(QChar c)
{
    return c.unicode();
}

char16_t unitOf(char c)
{
    return static_cast<unsigned char>(c);
}

// The number of a text that is a plain decimal of few digits; nothing for any other.
template <typename Text>
std::optional<double> plainDecimal(Text text)
{
    const bool negative = !text.isEmpty() && unitOf(text.front()) == u'-';
    const Text plain = text.sliced(negative ? 1 : 0);
    if (plain.isEmpty() || plain.size() > mostReadDigits)
        return std::nullopt;
    qint64 digits = 0;
    qsizetype point = -1;
    for (qsizetype i = 0; i < plain.size(); ++i) {
        const char16_t c = unitOf(plain[i]);
        if (c >= u'0' && c <= u'9')
            digits = digits * 10 + (c - u'0');
        else if (c == u'.' && point < 0 && i > 0 && i + 1 < plain.size())
            point = i;
        else
            return std::nullopt;
    }
    const double value = double(digits) / powers[point < 0 ? 0 : plain.size() - 1 - point];
    return negative ? -value : value;
}

} // namespace

char *writeNumber(char *out, int value)
{
    return std::to_chars(out, std::next(out, longestNumber), value).ptr;
}

char *writeNumber(char *out, double value)
{
    const double magnitude = std::fabs(value);
    if (!(magnitude < beyondSixDigits))
        return writeSlowly(out, value);
    const int whole = static_cast<int>(value);
    if (whole == value)
        return writeNumber(out, whole);
    const std::optional<SixDigits> number = sixDigits(magnitude);
    if (!number)
        return writeSlowly(out, value);
    if (value < 0)
        *out++ = '-';
    return writeDecimal(out, *number);
}

void appendNumber(QByteArray &bytes, double value)
{
    std::array<char, longestNumber> text;
    const char *const textEnd = writeNumber(text.data(), value);
    bytes.append(text.data(), std::distance<const char *>(text.data(), textEnd));
}

QString numberText(double value)
{
    std::array<char, longestNumber> text;
    const char *const textEnd = writeNumber(text.data(), value);
    return QString::fromLatin1(text.data(), std::distance<const char *>(text.data(), textEnd));
}

QByteArray exactNumberText(double value)
{
    constexpr int exactDigits = 17;
    constexpr size_t longestExact = 32;
    // The middle between two texts goes up with the toolkit, and to the even one with the standard
    // library. A number below this bound that is one has 18 digits and at most 27 bits, so that the
    // last 26 of its 53 are 0.
    constexpr double bound = 8192.0;
    constexpr quint64 lastBits = (quint64(1) << 26) - 1;
    const bool mayBeMiddle = (std::bit_cast<quint64>(value) & lastBits) == 0;
    if (!(std::fabs(value) < bound) || mayBeMiddle)
        return QByteArray::number(value, 'g', exactDigits);
    std::array<char, longestExact> text;
    const char *const textEnd = std::to_chars(text.data(), std::next(text.data(), longestExact),
                                              value, std::chars_format::general, exactDigits)
                                    .ptr;
    return {text.data(), std::distance<const char *>(text.data(), textEnd)};
}

double numberFrom(QStringView text)
{
    const std::optional<double> plain = plainDecimal(text);
    return plain ? *plain : text.toDouble();
}

double numberFrom(QByteArrayView text)
{
    if (const std::optional<double> plain = plainDecimal(text))
        return *plain;
    bool ok = false;
    const double value = text.toDouble(&ok);
    // The toolkit's reading of bytes is the faster one, but makes 0 of what is too large.
    return ok ? value : QString::fromUtf8(text).toDouble();
}

double numberThroughText(double value)
{
    const std::optional<SixDigits> number = sixDigits(std::fabs(value));
    if (!number)
        return numberFrom(numberText(value));
    const auto [digits, decimals] = *number;
    const double kept = decimals >= 0 ? digits / powers[decimals] : digits * powers[-decimals];
    return value < 0.0 ? -kept : kept;
}

} // namespace ORR::Graph
