#pragma once

#include "companion/import/reading/import_source.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace ORR::Companion {

// The records of a table (RFC 4180): cells with a separator between, a cell in double quotes may
// hold separators, line ends and doubled quotes. Quotes within a cell that does not begin with one
// are what they are; lines may end with a line feed alone.
class CsvRecords
{
public:
    // The source has to outlive the records.
    CsvRecords(ImportSource *read, char cellSeparator) : source(read), separator(cellSeparator) { }

    // The cells of the next record that is not empty; false at the end, and at a quote that is
    // never closed, which is a fault.
    bool next(QList<QByteArray> *cells);
    const std::optional<ImportFault> &fault() const { return quoteFault; }

    // A fault of the record given last.
    ImportFault faultHere(const QString &sentence) const
    {
        return {{.source = source->name(), .line = firstLine}, sentence};
    }

private:
    bool splitQuoted(QByteArray *record, qsizetype *place, QByteArray *cell);

    ImportSource *source;
    char separator;
    qint64 firstLine = 0; // of the record
    std::optional<ImportFault> quoteFault;
};

// The one of comma, semicolon and tab that the first line of a beginning has most of outside of
// quotes; a comma if it has none.
char csvSeparator(QByteArrayView beginning);

} // namespace ORR::Companion
