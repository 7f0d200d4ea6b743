#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

// The numbers of texts: attributes, drawings and formulas are all written and read here, in decimal
// and whatever the locale. Drawings consist of little else, so both ways do without the toolkit's
// own conversions where the arithmetic leaves no doubt, and come out as those do: the same bytes
// and the same bits. One more way to `numberThroughText` stands in layout/graflib/stored_number.h,
// for an engine that spends its time on nothing else; it gives the same bits, too.
namespace ORR::Graph {

// Room enough for any number of `writeNumber`.
inline constexpr int longestNumber = 16;

// Writes the number to `out`, which has to have room for the longest one, and gives the end of it.
// A double gets at most six significant digits, and an exponent below 0.0001 and from a million on;
// what is not finite is "nan", "inf" or "-inf", and a negative zero is 0.
char *writeNumber(char *out, int value);
char *writeNumber(char *out, double value);

void appendNumber(QByteArray &bytes, double value);

// The same text, as it is stored in an attribute or printed into a drawing. Layouts read positions
// back through it, so the rounding is part of every result.
QString numberText(double value);

// The number with 17 significant digits, which tell every double apart.
QByteArray exactNumberText(double value);

// The number that a text holds; 0 if it holds none. What is too large is infinite.
double numberFrom(QStringView text);
double numberFrom(QByteArrayView text);

// The number that comes back when a value is stored in an attribute: that of `numberText`.
double numberThroughText(double value);

} // namespace ORR::Graph
