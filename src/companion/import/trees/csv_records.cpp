#include "companion/import/trees/csv_records.h"

#include <array>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr QByteArrayView byteOrderMark = "\xef\xbb\xbf";

// A quote that is not closed would else take all that is left into memory.
constexpr qsizetype longestCsvRecord = 1 << 24;

} // namespace

// Reads a cell from its first quote on, over as many lines as it has; false if it never ends.
bool CsvRecords::splitQuoted(QByteArray *record, qsizetype *place, QByteArray *cell)
{
    qsizetype at = *place + 1;
    for (;;) {
        const qsizetype quote = record->indexOf('"', at);
        if (quote >= 0) {
            *cell += QByteArrayView(*record).sliced(at, quote - at);
            at = quote + 1;
            if (at >= record->size() || record->at(at) != '"')
                break;
            *cell += '"';
            ++at;
            continue;
        }
        QByteArrayView line;
        if (record->size() > longestCsvRecord || !source->nextLine(&line))
            return false;
        *cell += QByteArrayView(*record).sliced(at);
        *cell += '\n';
        at = record->size();
        *record += line;
    }
    // What stands behind the closing quote belongs to the cell, as spreadsheets read it.
    qsizetype end = record->indexOf(separator, at);
    if (end < 0)
        end = record->size();
    *cell += QByteArrayView(*record).sliced(at, end - at);
    *place = end;
    return true;
}

bool CsvRecords::next(QList<QByteArray> *cells)
{
    QByteArrayView line;
    do {
        if (!source->nextLine(&line))
            return false;
        firstLine = source->lineNumber();
        if (firstLine == 1 && line.startsWith(byteOrderMark))
            line = line.sliced(byteOrderMark.size());
    } while (line.isEmpty());

    cells->clear();
    QByteArray record = line.toByteArray();
    for (qsizetype place = 0; place <= record.size(); ++place) {
        QByteArray cell;
        if (place < record.size() && record[place] == '"') {
            if (!splitQuoted(&record, &place, &cell)) {
                quoteFault = faultHere(u"a quote that begins here is not closed"_s);
                return false;
            }
        } else {
            qsizetype end = record.indexOf(separator, place);
            if (end < 0)
                end = record.size();
            cell = record.sliced(place, end - place);
            place = end;
        }
        cells->append(cell);
    }
    return true;
}

char csvSeparator(QByteArrayView beginning)
{
    constexpr std::array<char, 3> separators = {',', ';', '\t'};
    std::array<qsizetype, 3> counts = {};
    bool isQuoted = false;
    for (const char c : beginning) {
        if (c == '"')
            isQuoted = !isQuoted;
        if (c == '\n' && !isQuoted)
            break;
        for (size_t i = 0; i < separators.size() && !isQuoted; ++i)
            counts[i] += c == separators[i] ? 1 : 0;
    }
    size_t most = 0;
    for (size_t i = 1; i < separators.size(); ++i) {
        if (counts[i] > counts[most])
            most = i;
    }
    return separators[most];
}

} // namespace ORR::Companion
