#pragma once

#include "companion/import/dependencies/deps_reading.h"
#include "companion/import/reading/import_source.h"

// Dependencies that stand in lines.
namespace ORR::Companion {

// Lines `a -> b`, or two names with tabs or blanks between; behind a further tab or blank may stand
// how often, a number above or equal to 0. Names between double quotes may hold blanks. What is
// before "/" in names are folders. Empty lines and those that begin with "#" are passed over.
void readDepsList(ImportSource &source, DepsReading *reading);

// How many of the lines of a beginning look so, in percent.
int shareOfDepsLines(QByteArrayView beginning);

// The names of two in a line, and how often; false if it is no such line.
struct DepsLine
{
    QByteArray tail;
    QByteArray head;
    double weight = 1;
};
bool readDepsLine(QByteArrayView line, DepsLine *read);

} // namespace ORR::Companion
