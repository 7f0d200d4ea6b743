#include "companion/import/lines/lcov_import.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/lines/covered_files.h"
#include "companion/import/lines/gcov_json.h"
#include "companion/import/reading/gzip_bytes.h"
#include "companion/import/reading/written_number.h"
#include "companion/import/trees/tree_result.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// Of a tracefile: what stands between two lines "SF:" and "end_of_record".
struct CoverageRecord
{
    qsizetype file = -1; // none is open
    double lines = 0; // as its summary says
    double hit = 0;
    bool isBelowZero = false; // the count that was read last
};

// "DA:12,3" with a checksum behind it or without.
bool readLineData(QByteArrayView data, CoverageRecord *record, CoveredFiles *files)
{
    const qsizetype comma = data.indexOf(',');
    if (comma < 0)
        return false;
    QByteArrayView count = data.sliced(comma + 1);
    if (const qsizetype end = count.indexOf(','); end >= 0)
        count = count.first(end);
    bool isLine = false;
    const quint64 line = data.first(comma).toULongLong(&isLine);
    const std::optional<double> times = writtenNumber(count);
    if (!isLine || !times || !std::isfinite(*times))
        return false;
    files->addLine(record->file, line, *times > 0);
    record->isBelowZero = *times < 0;
    return true;
}

bool readSummary(QByteArrayView data, double *count)
{
    const std::optional<double> number = writtenAmount(data);
    *count = std::max(*count, number.value_or(0));
    return number.has_value();
}

// Other data of a record, of whatever version: "FNDA:".
bool isOtherData(QByteArrayView line)
{
    const qsizetype colon = line.indexOf(':');
    return colon > 0
        && std::ranges::all_of(line.first(colon), [](char c) { return c >= 'A' && c <= 'Z'; });
}

// What is wrong with a line; empty if nothing is.
QString readTraceLine(QByteArrayView line, CoverageRecord *record, CoveredFiles *files)
{
    if (line.trimmed().isEmpty() || line.startsWith('#') || line.startsWith("TN:"))
        return {};
    if (line.startsWith("SF:")) {
        if (record->file >= 0)
            return quotedText(line)
                + " begins a record within another, which has no end_of_record"_L1;
        *record = {.file = files->file(line.sliced(3).toByteArray())};
        return {};
    }
    const bool isEnd = line.trimmed() == "end_of_record";
    if (!isEnd && !isOtherData(line))
        return quotedText(line) + " is no line of a tracefile"_L1;
    if (record->file < 0)
        return quotedText(line)
            + " stands outside of a record, which begins with SF: and a path"_L1;
    if (isEnd) {
        files->addSummary(record->file, record->hit, record->lines);
        *record = {};
    } else if (line.startsWith("DA:")) {
        if (!readLineData(line.sliced(3), record, files))
            return quotedText(line)
                + " is no line of coverage; DA: is followed by a line and its count"_L1;
    } else if (line.startsWith("LF:")) {
        if (!readSummary(line.sliced(3), &record->lines))
            return quotedText(line) + " has no number of lines"_L1;
    } else if (line.startsWith("LH:")) {
        if (!readSummary(line.sliced(3), &record->hit))
            return quotedText(line) + " has no number of lines"_L1;
    }
    return {};
}

std::optional<ImportFault> readTracefile(ImportSource *source, CoveredFiles *files,
                                         CountedNote *below)
{
    CoverageRecord record;
    QByteArrayView line;
    while (source->nextLine(&line)) {
        const QString wrong = readTraceLine(line, &record, files);
        if (!wrong.isEmpty())
            return source->faultHere(wrong);
        if (std::exchange(record.isBelowZero, false))
            below->add(source->place());
    }
    if (record.file >= 0)
        return source->faultHere(u"the last record has no end_of_record"_s);
    return std::nullopt;
}

std::optional<ImportFault> readUnpacked(ImportSource *source, CoveredFiles *files,
                                        CountedNote *below)
{
    return isGcovJson(source->beginning()) ? readGcovJson(source, files, below)
                                           : readTracefile(source, files, below);
}

std::optional<ImportFault> readCoverage(ImportSource *source, CoveredFiles *files,
                                        CountedNote *below)
{
    if (!isGzip(source->beginning()))
        return readUnpacked(source, files, below);
    const std::optional<QByteArray> unpacked = unpackedGzip(source->rest());
    if (!unpacked)
        return source->faultHere(u"it can't be unpacked"_s);
    ImportSource within(source->name(), *unpacked);
    return readUnpacked(&within, files, below);
}

int likenessOfUnpacked(QByteArrayView beginning)
{
    if (isGcovJson(beginning))
        return 100;
    const bool isBegun = beginning.startsWith("TN:") || beginning.startsWith("SF:");
    return isBegun ? 100 : beginning.contains("\nSF:") && beginning.contains("\nDA:") ? 80 : 0;
}

} // namespace

int likenessOfLcov(QByteArrayView beginning)
{
    if (isGzip(beginning))
        return likenessOfUnpacked(unpackedGzipBeginning(beginning));
    return likenessOfUnpacked(beginning);
}

ImportResult readLcov(std::vector<ImportSource> &sources, const ImportOptions & /*options*/)
{
    CoveredFiles files;
    CountedNote below;
    for (ImportSource &source : sources) {
        if (std::optional<ImportFault> fault = readCoverage(&source, &files, &below))
            return {.fault = fault};
    }
    TreeMeaning meaning{.weight = u"lines"_s, .coloring = TreeMeaning::Coloring::ByShare};
    meaning.color = u"covered lines"_s;
    meaning.scale = TreeMeaning::Scale::BadToGood;
    meaning.share = u"coverage"_s;
    meaning.low = 0.5; // less is as bad, and what is well covered is told apart
    ImportResult result = treeResult(files.tree(), meaning, sources, u"no line of code is in it"_s);
    below.tell(u"counts below zero are of lines that did not run"_s, &result.notes);
    return result;
}

} // namespace ORR::Companion
