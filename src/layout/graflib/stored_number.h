#pragma once

namespace ORR::Graph::Layout {

// Gives the number that comes back when a value is stored in an attribute: that of
// `numberThroughText`, with the same bits, in a quarter of the time. That one looks for the power
// of ten each time; here it is the one of the number before nearly always, which is kept. A tree
// whose parents are pushed spends nearly all of its time on this.
//
// Six digits are an integer of 100,000 to 999,999 and a power of ten. As long as that power is one
// which a double holds exactly (10^22 and below), the integer times it or divided by it is the
// double nearest to the decimal number, and that is what reading its text gives.
class StoredNumber
{
public:
    double operator()(double value)
    {
        const double size = value < 0.0 ? -value : value;
        if (!(size >= decade.start && size < decade.end) && !findDecade(size))
            return throughText(value);
        const double scaled = size * decade.scale;
        // Never negative, and where it lies near the middle of two integers the text decides.
        const double digits =
            static_cast<int>(scaled + 0.5); // NOLINT(bugprone-incorrect-roundings)
        const double off = scaled - digits;
        if (off > surelyNearest || off < -surelyNearest)
            return throughText(value);
        const double kept = decade.up > 1.0 ? digits / decade.up : digits * decade.down;
        return value < 0.0 ? -kept : kept;
    }

private:
    // Scaling is off by less than 10^-9, so that what lies further than this from the middle
    // between two six-digit numbers is on the right side of it.
    static constexpr double surelyNearest = 0.5 - 1e-6;

    // The numbers with the same power of ten.
    struct Decade
    {
        double start;
        double end;
        double scale; // what gives such a number its six digits before the point
        double up; // the power that they are divided by, if it is one to divide by; else 1
        double down; // the power that they are multiplied by; else 1
    };
    bool findDecade(double size);
    static double throughText(double value);

    Decade decade{}; // the last one in use: neighbours have the same nearly always
};

} // namespace ORR::Graph::Layout
