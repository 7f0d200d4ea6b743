#include "companion/import/trees/csv_columns.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/reading/written_number.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr qsizetype shownNames = 12;

constexpr std::array<QByteArrayView, 4> pathNames = {"path", "file", "filename", "name"};

// Whose cells in the first record and the next one are asked for.
struct TableBeginning
{
    const QList<QByteArray> *first;
    const QList<QByteArray> *second;
    bool hasNames;

    bool isNumber(qsizetype column) const
    {
        const QList<QByteArray> &cells = hasNames ? *second : *first;
        return column < cells.size() && writtenNumber(QByteArrayView(cells[column]).trimmed());
    }
};

bool holdsColumnNumber(const QList<QByteArray> &cells)
{
    return std::any_of(cells.begin(), cells.end(), [](const QByteArray &cell) {
        return writtenNumber(QByteArrayView(cell).trimmed()).has_value();
    });
}

QString columnNames(const QList<QByteArray> &cells)
{
    QStringList names;
    for (const QByteArray &cell : cells.first(std::min(cells.size(), shownNames)))
        names.append(quotedText(QByteArrayView(cell)));
    return names.join(u", "_s) + (cells.size() > shownNames ? u", ..."_s : QString());
}

qsizetype columnNamed(const QList<QByteArray> &names, QByteArrayView wanted)
{
    for (const Qt::CaseSensitivity sensitivity : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
        for (qsizetype i = 0; i < names.size(); ++i) {
            if (names[i].trimmed().compare(wanted, sensitivity) == 0)
                return i;
        }
    }
    return -1;
}

// The column that an option names.
qsizetype askedColumn(const TableBeginning &table, const std::string &wanted, QString *why)
{
    const QByteArrayView name(wanted);
    const qsizetype named = table.hasNames ? columnNamed(*table.first, name) : -1;
    if (named >= 0)
        return named;
    const qsizetype count = table.first->size();
    const std::optional<double> number = writtenNumber(name);
    if (number && *number >= 1 && *number <= double(count))
        return qsizetype(*number) - 1;
    *why = u"there is no column "_s + quotedText(name) + u"; "_s
        + (table.hasNames ? u"the columns are "_s + columnNames(*table.first)
                          : u"the %1 columns have no names, but numbers from 1"_s.arg(count));
    return -1;
}

qsizetype likelyPath(const TableBeginning &table)
{
    for (const QByteArrayView name : pathNames) {
        const qsizetype column = table.hasNames ? columnNamed(*table.first, name) : -1;
        if (column >= 0)
            return column;
    }
    for (qsizetype i = 0; i < table.first->size(); ++i) {
        if (!table.isNumber(i))
            return i;
    }
    return 0;
}

qsizetype likelyArea(const TableBeginning &table, const CsvColumns &others)
{
    // A column of sizes whose first cell is none is a column with a fault, which is told.
    constexpr std::array<QByteArrayView, 6> names = {"size",   "area",  "bytes",
                                                     "weight", "value", "count"};
    for (const QByteArrayView name : names) {
        const qsizetype column = table.hasNames ? columnNamed(*table.first, name) : -1;
        if (column >= 0 && column != others.path && column != others.color)
            return column;
    }
    for (qsizetype i = 0; i < table.first->size(); ++i) {
        if (i != others.path && i != others.color && table.isNumber(i))
            return i;
    }
    return -1;
}

} // namespace

qsizetype CsvColumns::last() const
{
    return std::max({path, area, color});
}

CsvColumns chosenColumns(const QList<QByteArray> &first, const QList<QByteArray> &second,
                         const ImportOptions &options, QString *why)
{
    CsvColumns columns;
    columns.hasNames = !holdsColumnNumber(first);
    const TableBeginning table = {&first, &second, columns.hasNames};
    if (!options.color.empty())
        columns.color = askedColumn(table, options.color, why);
    columns.path = options.path.empty() ? likelyPath(table) : askedColumn(table, options.path, why);
    columns.area =
        options.area.empty() ? likelyArea(table, columns) : askedColumn(table, options.area, why);
    return columns;
}

bool namesColumns(const ImportOptions &options)
{
    return !options.path.empty() || !options.area.empty() || !options.color.empty();
}

bool hasPathColumn(QByteArrayView line, char separator)
{
    QList<QByteArray> names = line.toByteArray().split(separator);
    for (QByteArray &name : names)
        name.replace('"', "");
    if (names.size() < 2 || holdsColumnNumber(names))
        return false;
    return std::any_of(pathNames.begin(), pathNames.end(),
                       [&](QByteArrayView name) { return columnNamed(names, name) >= 0; });
}

} // namespace ORR::Companion
