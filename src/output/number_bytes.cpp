#include "output/number_bytes.h"

#include "graph/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>

namespace ORR::Graph {

namespace {

constexpr int beyondSixDigits = 1000000;

// How many decimals six significant digits of a magnitude within [0.0001, 1000000) leave, and the
// power of ten that makes a whole number of them.
struct Decimals
{
    double below;
    int count;
    double power;
};

constexpr std::array<Decimals, 10> decimalsTable{{
    {1e-3, 9, 1e9},
    {1e-2, 8, 1e8},
    {1e-1, 7, 1e7},
    {1e0, 6, 1e6},
    {1e1, 5, 1e5},
    {1e2, 4, 1e4},
    {1e3, 3, 1e3},
    {1e4, 2, 1e2},
    {1e5, 1, 1e1},
    {1e6, 0, 1e0},
}};

char *writeSlowly(char *out, double value)
{
    const QByteArray text = numberText(value).toLatin1();
    return std::copy(text.cbegin(), text.cend(), out);
}

// `digits` / 10^decimals without the zeros at its end; `digits` is not 0.
char *writeDecimal(char *out, int digits, int decimals)
{
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
    if (magnitude < 1e-4)
        return writeSlowly(out, value);
    const Decimals *row = decimalsTable.data();
    while (magnitude >= row->below)
        ++row;
    const double scaled = magnitude * row->power;
    const int digits = rounded(scaled);
    // The product carries an error of some 1e-10. That decides nothing, except near the middle of
    // two texts and where rounding adds a digit.
    const bool isDoubtful = std::fabs(scaled - std::floor(scaled) - 0.5) < 1e-6;
    if (isDoubtful || digits >= beyondSixDigits)
        return writeSlowly(out, value);
    if (value < 0)
        *out++ = '-';
    return writeDecimal(out, digits, row->count);
}

void appendNumber(QByteArray &bytes, double value)
{
    std::array<char, longestNumber> text;
    const char *const textEnd = writeNumber(text.data(), value);
    bytes.append(text.data(), std::distance<const char *>(text.data(), textEnd));
}

} // namespace ORR::Graph
