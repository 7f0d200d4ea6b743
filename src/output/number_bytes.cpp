#include "output/number_bytes.h"

#include "graph/numbers.h"

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

void appendSlowly(QByteArray &bytes, double value)
{
    bytes.append(numberText(value).toLatin1());
}

// `digits` / 10^decimals without the zeros at its end; `digits` is not 0.
void appendDecimal(QByteArray &bytes, int digits, int decimals)
{
    while (decimals > 0 && digits % 10 == 0) {
        digits /= 10;
        --decimals;
    }
    std::array<char, 16> text;
    char *const textEnd = std::to_chars(text.begin(), text.end(), digits).ptr;
    const auto length = static_cast<int>(std::distance(text.begin(), textEnd));
    const int wholeDigits = length - decimals;
    if (decimals == 0) {
        bytes.append(text.data(), length);
    } else if (wholeDigits > 0) {
        bytes.append(text.data(), wholeDigits).append('.');
        bytes.append(text.data() + wholeDigits, decimals);
    } else {
        bytes.append("0.").append(-wholeDigits, '0').append(text.data(), length);
    }
}

} // namespace

void appendNumber(QByteArray &bytes, int value)
{
    std::array<char, 16> text;
    char *const textEnd = std::to_chars(text.begin(), text.end(), value).ptr;
    bytes.append(text.data(), std::distance(text.begin(), textEnd));
}

void appendNumber(QByteArray &bytes, double value)
{
    const double magnitude = std::fabs(value);
    if (!(magnitude < beyondSixDigits)) {
        appendSlowly(bytes, value);
        return;
    }
    const int whole = static_cast<int>(value);
    if (whole == value) {
        appendNumber(bytes, whole);
        return;
    }
    if (magnitude < 1e-4) {
        appendSlowly(bytes, value);
        return;
    }
    const Decimals *row = decimalsTable.data();
    while (magnitude >= row->below)
        ++row;
    const double scaled = magnitude * row->power;
    const double floor = std::floor(scaled);
    const int digits = static_cast<int>(scaled + 0.5);
    // The product carries an error of some 1e-10. That decides nothing, except near the middle of
    // two texts and where rounding adds a digit.
    if (std::fabs(scaled - floor - 0.5) < 1e-6 || digits >= beyondSixDigits) {
        appendSlowly(bytes, value);
        return;
    }
    if (value < 0)
        bytes.append('-');
    appendDecimal(bytes, digits, row->count);
}

} // namespace ORR::Graph
