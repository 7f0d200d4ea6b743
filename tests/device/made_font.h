#pragma once

#include <QByteArray>
#include <QMap>
#include <QRawFont>

#include <initializer_list>

namespace ORR::Graph {

// Fonts for tests: Liberation Sans with other tables.
using FontTables = QMap<QByteArray, QByteArray>; // by their names of four bytes

FontTables tablesOfSans();

// The file of a font of these tables.
QByteArray fontFile(const FontTables &tables);

QRawFont fontOf(const FontTables &tables);

// Of Liberation Sans.
int glyphOf(char16_t c);

// Numbers as they stand in a table, of two bytes and of four.
QByteArray shorts(std::initializer_list<int> numbers);
QByteArray longNumber(qsizetype number);

// A table GSUB or GPOS with one feature that has one lookup of one subtable. It is for one script;
// as its required feature the script has the one with this number.
QByteArray lookupTable(int kind, int flags, const QByteArray &subtable,
                       const QByteArray &feature = "ccmp", int required = 0xFFFF);

// The coverage of one glyph, as a list.
QByteArray listed(int glyph);

} // namespace ORR::Graph
