#pragma once

#include "companion/import/import_format.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace ORR::Companion {

// Which columns of a table are drawn, by their places from 0; -1 for none.
struct CsvColumns
{
    qsizetype path = -1;
    qsizetype area = -1; // without one every record weighs 1
    qsizetype color = -1;
    bool hasNames = false; // whether the first record names the columns

    // The highest place of them.
    qsizetype last() const;
};

// The columns that the options name: as in the first record (in capital letters or small ones), or
// by number, from 1. Where they name none, the path is the first column called "path", "file",
// "filename" or "name", or the first one without a number, and the area the first one with a number
// in the second record. Columns are named in the first record if none of it is a number. If an
// option names a column that is not there, `why` is the sentence of the fault.
CsvColumns chosenColumns(const QList<QByteArray> &first, const QList<QByteArray> &second,
                         const ImportOptions &options, QString *why);

// Whether the options name any column, and so say that the input is a table.
bool namesColumns(const ImportOptions &options);

// Whether a line is the names of columns, one of them a name that is taken for that of the paths.
bool hasPathColumn(QByteArrayView line, char separator);

} // namespace ORR::Companion
