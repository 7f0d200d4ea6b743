#include "companion/import/programs/bloaty_table.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/programs/section_kind.h"
#include "companion/import/programs/symbol_name.h"
#include "companion/import/reading/written_number.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// A line of comma separated values (RFC 4180); empty if a quote is left open.
QByteArrayList cellsOf(QByteArrayView line)
{
    QByteArrayList cells{QByteArray()};
    bool isQuoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const char character = line[i];
        const bool isQuote = character == '"';
        if (isQuote && isQuoted && i + 1 < line.size() && line[i + 1] == '"')
            cells.last() += line[++i];
        else if (isQuote)
            isQuoted = !isQuoted;
        else if (character == ',' && !isQuoted)
            cells.append(QByteArray());
        else
            cells.last() += character;
    }
    return isQuoted ? QByteArrayList() : cells;
}

bool isSize(const QByteArray &column)
{
    return column == "vmsize" || column == "filesize";
}

// Their values are paths of files.
bool isOfFiles(const QByteArray &column)
{
    return column == "compileunits" || column == "inputfiles";
}

} // namespace

bool BloatyTable::looksLike(QByteArrayView beginning)
{
    const qsizetype end = beginning.indexOf('\n');
    return beginning.first(end < 0 ? beginning.size() : end).trimmed().endsWith("vmsize,filesize");
}

QString BloatyTable::readHeading(QByteArrayView line)
{
    columns = cellsOf(line);
    areaColumn = columns.indexOf(areaName);
    sectionColumn = std::max(columns.indexOf("sections"), columns.indexOf("segments"));
    if (std::ranges::none_of(columns, isSize))
        return quotedText(line) + " names no columns vmsize and filesize, as bloaty has them"_L1;
    if (areaColumn < 0 || !isSize(areaName)) {
        return u"--area can be vmsize or filesize, not "_s + quotedText(QByteArrayView(areaName));
    }
    return {};
}

std::optional<ImportFault> BloatyTable::read(ImportSource *source, QList<ImportFault> *notes)
{
    QByteArrayView line;
    if (!source->nextLine(&line))
        return source->faultHere(u"it is empty"_s);
    if (const QString wrong = readHeading(line); !wrong.isEmpty())
        return source->faultHere(wrong);
    CountedNote below;
    while (source->nextLine(&line)) {
        if (line.trimmed().isEmpty())
            continue;
        const QByteArrayList cells = cellsOf(line);
        if (cells.size() != columns.size()) {
            return source->faultHere(u"this row has %1 cells and the heading %2"_s.arg(cells.size())
                                         .arg(columns.size()));
        }
        const std::optional<double> size = writtenNumber(cells.at(areaColumn));
        if (!size)
            return source->faultHere(quotedText(QByteArrayView(cells.at(areaColumn)))
                                     + " is no size"_L1);
        if (!std::isfinite(*size))
            return source->faultHere(quotedText(QByteArrayView(cells.at(areaColumn)))
                                     + " is too large for a number"_L1);
        if (*size >= 0)
            addRow(cells, *size);
        else
            below.add(source->place());
    }
    below.tell(u"rows below zero are passed over"_s, notes);
    return std::nullopt;
}

void BloatyTable::addRow(const QByteArrayList &cells, double size)
{
    const int kind = hasSections() ? sectionKind(cells.at(sectionColumn)) : -1;
    WeightTree::Item item = WeightTree::root;
    for (qsizetype i = 0; i < columns.size(); ++i) {
        if (isSize(columns.at(i)))
            continue;
        const bool isPath = isOfFiles(columns.at(i)) && !isFlat;
        const bool isSymbol = columns.at(i).endsWith("symbols"); // short, full or raw ones
        const QByteArray name = isSymbol ? shortSymbol(cells.at(i)) : cells.at(i);
        const QByteArrayList parts = isPath ? name.split('/') : QByteArrayList{name};
        for (const QByteArray &part : parts) {
            if (!part.isEmpty() && part != "." && part != "..")
                item = weights.child(item, part);
        }
        if (hasSections() && i >= sectionColumn)
            weights.setKind(item, kind);
        if (isFlat)
            break;
    }
    weights.addWeight(item, size);
}

} // namespace ORR::Companion
