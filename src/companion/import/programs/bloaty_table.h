#pragma once

#include "companion/import/reading/import_source.h"
#include "companion/produce/weight_tree.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QList>

#include <optional>

namespace ORR::Companion {

// A table of bloaty 1.1, written with --csv (described in its manual,
// https://github.com/google/bloaty/blob/main/doc/using.md): a column for each of the things by
// which it took programs apart, and their sizes in the file and in memory.
class BloatyTable
{
public:
    // `area`: the column of the sizes, "filesize" if it is empty. `flat`: nothing has anything
    // below it.
    BloatyTable(const QByteArray &area, bool flat)
        : areaName(area.isEmpty() ? "filesize" : area), isFlat(flat)
    {
    }

    static bool looksLike(QByteArrayView beginning);

    // Adds all rows. Rows below zero, as comparisons have them, are passed over and told.
    std::optional<ImportFault> read(ImportSource *source, QList<ImportFault> *notes);

    const WeightTree &tree() const { return weights; }
    // Whether the things have the kinds of sections.
    bool hasSections() const { return sectionColumn >= 0; }

private:
    QString readHeading(QByteArrayView line);
    void addRow(const QByteArrayList &cells, double size);

    QByteArray areaName;
    bool isFlat;
    WeightTree weights;
    QByteArrayList columns;
    qsizetype areaColumn = -1;
    qsizetype sectionColumn = -1;
};

} // namespace ORR::Companion
