#include "layout/graflib/stored_number.h"

#include "graph/attribute_values.h"
#include "graph/numbers.h"

#include <cmath>

namespace ORR::Graph::Layout {

namespace {

// Six digits are an integer n of 100,000 to 999,999 and a power of ten. As long as the power is one
// that a double holds exactly (10^22 and below), n times it or divided by it is the double nearest
// to the decimal number, which is what reading its text gives.
struct Decade
{
    double end; // numbers below it, and not below the end of the decade before
    double up; // what makes such a number one of six digits, if the number is smaller
    double down; // and if it is larger; one of the two is 1
};

constexpr double firstNumber = 1e-3;
constexpr Decade decades[] = {
    {1e-2, 1e8, 1}, {1e-1, 1e7, 1}, {1e0, 1e6, 1},  {1e1, 1e5, 1},  {1e2, 1e4, 1},
    {1e3, 1e3, 1},  {1e4, 1e2, 1},  {1e5, 1e1, 1},  {1e6, 1, 1},    {1e7, 1, 1e1},
    {1e8, 1, 1e2},  {1e9, 1, 1e3},  {1e10, 1, 1e4}, {1e11, 1, 1e5}, {1e12, 1, 1e6},
};

// Scaling is off by less than 10^-9, so what lies further from the middle between two six-digit
// numbers than this is on the right side of it.
constexpr double doubt = 1e-6;

} // namespace

double storedNumber(double value)
{
    const double size = std::abs(value);
    if (size >= firstNumber) {
        for (const Decade &decade : decades) {
            if (!(size < decade.end))
                continue;
            const double scaled = size * decade.up / decade.down;
            const double digits = static_cast<int>(scaled + 0.5);
            if (std::abs(scaled - digits) > 0.5 - doubt)
                break;
            return std::copysign(digits * decade.down / decade.up, value);
        }
    }
    return numberFrom(numberText(value));
}

} // namespace ORR::Graph::Layout
