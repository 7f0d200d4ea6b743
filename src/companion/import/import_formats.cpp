#include "companion/import/csv_import.h"
#include "companion/import/du_import.h"
#include "companion/import/folded_import.h"
#include "companion/import/import_format.h"
#include "companion/import/line_counts_import.h"
#include "companion/import/numstat_import.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

// clang-format off
static constexpr ImportFormat table[] = {
    {"folded", "folded stacks of profilers", "treemap sunburst gftree flatbubble bar", "samples", "branches of the calls", "", likenessOfFolded, readFolded},
    {"cloc", "cloc --json --by-file", "treemap sunburst flatbubble bar gftree", "lines of code", "languages", "", likenessOfCloc, readCloc},
    {"scc", "scc --format json --by-file", "treemap sunburst flatbubble bar gftree", "lines of code", "languages", "", likenessOfScc, readScc},
    {"tokei", "tokei --output json --files", "treemap sunburst flatbubble bar gftree", "lines of code", "languages", "", likenessOfTokei, readTokei},
    {"du", "du -a, also with -0 or -b", "treemap sunburst flatbubble bar gftree", "sizes of files", "folders", "--by", likenessOfDu, readDu},
    {"numstat", "git log --numstat", "treemap sunburst flatbubble bar gftree", "lines", "lines changed", "--by", likenessOfNumstat, readNumstat},
    {"csv", "tables with a column of paths", "treemap sunburst flatbubble bar gftree", "the column of --area", "the column of --color", "--path --area --color --separator", likenessOfCsv, readCsv},
};
// clang-format on

std::span<const ImportFormat> importFormats()
{
    return table;
}

const ImportFormat *importFormat(QStringView name)
{
    for (const ImportFormat &format : importFormats()) {
        if (QLatin1StringView(format.name) == name)
            return &format;
    }
    return nullptr;
}

const ImportFormat *likelyFormat(QByteArrayView beginning)
{
    const ImportFormat *likely = nullptr;
    int greatest = 50;
    for (const ImportFormat &format : importFormats()) {
        const int likeness = format.likeness(beginning);
        if (likeness > greatest) {
            greatest = likeness;
            likely = &format;
        }
    }
    return likely;
}

} // namespace ORR::Companion
