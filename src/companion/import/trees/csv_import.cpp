#include "companion/import/trees/csv_import.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/reading/first_lines.h"
#include "companion/import/reading/text_kind.h"
#include "companion/import/reading/written_number.h"
#include "companion/import/trees/csv_columns.h"
#include "companion/import/trees/csv_records.h"
#include "companion/import/trees/tree_result.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

using CsvCells = QList<QByteArray>;

// A column of so many numbers in a row is one of numbers; up to there it may become one of words.
constexpr qsizetype trustedNumbers = 10000;

// Far enough from the ends of double for differences and sums.
constexpr double largestShade = 1e100;

// What a column of colours holds, as it is read.
class ColumnShades
{
public:
    // Of a cell that is not empty; the sentence of the fault if it does not fit those before.
    QString add(WeightTree *tree, WeightTree::Item item, QByteArrayView cell);

    bool areNumbers() const { return numbers > 0 && words == 0; }
    void setMeaning(TreeMeaning *meaning, WeightTree *tree) const;

private:
    KindNames kinds;
    qsizetype numbers = 0;
    qsizetype words = 0;
    double lowest = std::numeric_limits<double>::max();
    double highest = std::numeric_limits<double>::lowest();
};

QString ColumnShades::add(WeightTree *tree, WeightTree::Item item, QByteArrayView cell)
{
    const std::optional<double> number = writtenNumber(cell);
    if (!number && words == 0 && numbers > trustedNumbers)
        return quotedText(cell) + u" is no number; above it, the column of colours has numbers"_s;
    if (number && words == 0) {
        if (std::abs(*number) > largestShade)
            return quotedText(cell) + u" is too large for a scale of colours"_s;
        ++numbers;
        lowest = std::min(lowest, *number);
        highest = std::max(highest, *number);
        tree->addShare(item, *number, 1);
    }
    if (!number)
        ++words;
    if (words > 0 || numbers <= trustedNumbers)
        tree->setKind(item, kinds.of(cell));
    return {};
}

void ColumnShades::setMeaning(TreeMeaning *meaning, WeightTree *tree) const
{
    if (!areNumbers()) {
        meaning->coloring = TreeMeaning::Coloring::ByKind;
        meaning->kinds = kinds.rankIn(tree);
        return;
    }
    meaning->coloring = TreeMeaning::Coloring::ByShare;
    meaning->sharesAreParts = false;
    meaning->share = meaning->color;
    meaning->low = lowest;
    meaning->high = highest;
    if (lowest < 0 && highest > 0) { // its middle is none
        meaning->scale = TreeMeaning::Scale::BadToGood;
        meaning->high = std::max(-lowest, highest);
        meaning->low = -meaning->high;
    }
}

// A table that is read into a tree.
class CsvTableReader
{
public:
    explicit CsvTableReader(const ImportOptions *asked) : options(asked) { }

    std::optional<ImportFault> read(ImportSource &source);
    ImportResult result(const std::vector<ImportSource> &sources);

private:
    std::optional<ImportFault> readRecord(const CsvRecords &records, const CsvCells &cells);

    const ImportOptions *options;
    CsvColumns columns;
    QString areaName;
    QString colorName;
    WeightTree tree;
    ColumnShades shades;
    qsizetype withoutPath = 0; // records of this source
    qsizetype pathNote = 0; // the note of them
    QList<ImportFault> notes;
};

QByteArrayView csvCellOf(const CsvCells &cells, qsizetype column)
{
    return QByteArrayView(cells[column]).trimmed();
}

QString columnName(const CsvColumns &columns, const CsvCells &first, qsizetype column)
{
    if (column < 0)
        return {};
    if (columns.hasNames && !csvCellOf(first, column).isEmpty())
        return QString::fromUtf8(csvCellOf(first, column));
    return u"column %1"_s.arg(column + 1);
}

std::optional<ImportFault> CsvTableReader::readRecord(const CsvRecords &records,
                                                      const CsvCells &cells)
{
    if (columns.last() >= cells.size())
        return records.faultHere(
            u"there are %1 columns, and %2 are needed"_s.arg(cells.size()).arg(columns.last() + 1));
    const QByteArrayView path = csvCellOf(cells, columns.path);
    if (path.isEmpty()) { // a line of sums, mostly
        if (withoutPath++ == 0) {
            pathNote = notes.size();
            notes.append(records.faultHere({}));
        }
        return std::nullopt;
    }
    double weight = 1;
    if (columns.area >= 0) {
        QString why;
        const std::optional<double> stated = writtenWeight(csvCellOf(cells, columns.area), &why);
        if (!stated)
            return records.faultHere(why + u"; the sizes are those of "_s + quotedText(areaName));
        weight = *stated;
    }
    const WeightTree::Item item = tree.at(path);
    tree.addWeight(item, weight);
    if (columns.color < 0 || csvCellOf(cells, columns.color).isEmpty())
        return std::nullopt;
    const QString why = shades.add(&tree, item, csvCellOf(cells, columns.color));
    if (!why.isEmpty())
        return records.faultHere(why);
    return std::nullopt;
}

// What stands between the cells, by the option if it says so; 0 if it says nothing that can.
char csvSeparatorOf(ImportSource &source, const std::string &asked)
{
    if (asked.empty())
        return csvSeparator(source.beginning());
    if (asked == "tab" || asked == "\\t")
        return '\t';
    return asked.size() == 1 && asked != "\"" && asked != "\n" ? asked[0] : '\0';
}

// A table may be read of nearly any text, so what is clearly none is one only if columns are named.
std::optional<ImportFault> noTable(ImportSource &source, const ImportOptions &options)
{
    const QString kind = namesColumns(options) ? QString() : notTabular(source.beginning());
    if (kind.isEmpty())
        return std::nullopt;
    return {{{.source = source.name()},
             u"this looks like "_s + kind
                 + u", not like a table; --path and --area would name its "
                   "columns if it is one"_s}};
}

std::optional<ImportFault> CsvTableReader::read(ImportSource &source)
{
    if (std::optional<ImportFault> fault = noTable(source, *options))
        return fault;
    const char separator = csvSeparatorOf(source, options->separator);
    if (separator == '\0')
        return {{{},
                 u"the separator is one character or 'tab', not "_s
                     + quotedText(QByteArrayView(options->separator))}};
    CsvRecords records(&source, separator);
    CsvCells first;
    CsvCells cells;
    if (!records.next(&first))
        return records.fault();
    const ImportFault headFault = records.faultHere({});
    const bool hasSecond = records.next(&cells);
    if (records.fault())
        return records.fault();

    QString why;
    columns = chosenColumns(first, hasSecond ? cells : first, *options, &why);
    if (!why.isEmpty())
        return {{headFault.place, why}};
    if (columns.area < 0)
        notes.append(
            {headFault.place,
             u"no column has numbers in the first record of data: every record counts 1, and "
             "--area would name a column"_s});
    areaName = columnName(columns, first, columns.area);
    colorName = columnName(columns, first, columns.color);
    if (!columns.hasNames) {
        if (std::optional<ImportFault> fault = readRecord(records, first))
            return fault;
    }
    for (bool hasMore = hasSecond; hasMore; hasMore = records.next(&cells)) {
        if (std::optional<ImportFault> fault = readRecord(records, cells))
            return fault;
    }
    if (withoutPath == 1)
        notes[pathNote].sentence = u"a record has no path and is passed over"_s;
    else if (withoutPath > 1)
        notes[pathNote].sentence =
            u"%1 records from here on have no path and are passed over"_s.arg(withoutPath);
    withoutPath = 0;
    return records.fault();
}

// By a whole word of the name of the column: "bytes", "size_in_bytes".
TreeMeaning::Unit unitOfColumn(const QString &name)
{
    QString words = name.toLower();
    for (QChar &c : words) {
        if (!c.isLetter())
            c = u' ';
    }
    const QStringList parts = words.split(u' ');
    if (parts.contains(u"bytes"_s))
        return TreeMeaning::Unit::Bytes;
    return parts.contains(u"seconds"_s) ? TreeMeaning::Unit::Seconds : TreeMeaning::Unit::Count;
}

ImportResult CsvTableReader::result(const std::vector<ImportSource> &sources)
{
    TreeMeaning meaning = {.weight = columns.area < 0 ? u"records"_s : areaName,
                           .unit = unitOfColumn(areaName),
                           .color = colorName};
    if (columns.color >= 0)
        shades.setMeaning(&meaning, &tree);
    ImportResult read = treeResult(std::move(tree), std::move(meaning), sources,
                                   u"there is no record with a path and a size above 0"_s);
    read.notes = std::move(notes);
    return read;
}

} // namespace

int likenessOfCsv(QByteArrayView beginning)
{
    if (!notTabular(beginning).isEmpty())
        return 0;
    const char separator = csvSeparator(beginning);
    const QList<QByteArrayView> lines = firstLines(beginning);
    if (lines.size() < 2)
        return 0;
    if (hasPathColumn(lines[0], separator))
        return 75;
    // The first line has names, and some lines have quotes or sums.
    const qsizetype count = lines[1].count(separator);
    const qsizetype even = std::count_if(lines.begin(), lines.end(), [&](QByteArrayView line) {
        return line.count(separator) == count;
    });
    return count > 0 && 4 * even >= 3 * lines.size() ? 55 : 0;
}

ImportResult readCsv(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    CsvTableReader table(&options);
    for (ImportSource &source : sources) {
        if (std::optional<ImportFault> fault = table.read(source))
            return {.fault = std::move(fault)};
    }
    return table.result(sources);
}

} // namespace ORR::Companion
