#include "companion/import/import_format.h"

#include "companion/import/builds/junit_import.h"
#include "companion/import/builds/ninja_import.h"
#include "companion/import/dependencies/deps_import.h"
#include "companion/import/graphs/ctags_import.h"
#include "companion/import/graphs/dot_import.h"
#include "companion/import/lines/lcov_import.h"
#include "companion/import/lines/line_counts_import.h"
#include "companion/import/lines/numstat_import.h"
#include "companion/import/programs/size_import.h"
#include "companion/import/sequences/mermaid_import.h"
#include "companion/import/sequences/plantuml_import.h"
#include "companion/import/traces/trace_import.h"
#include "companion/import/trees/csv_import.h"
#include "companion/import/trees/du_import.h"
#include "companion/import/trees/folded_import.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// clang-format off
// Name, what writes it, engines, sizes, colours, options.
constexpr ImportFormat table[] = {
    {"dot", "any program that writes DOT", "gftree matrix", "", "as in the graph; cycles", "--layout", likenessOfDot, readDot},
    {"folded", "folded stacks of profilers", "treemap sunburst gftree flatbubble bar", "samples", "branches of the calls", "", likenessOfFolded, readFolded},
    {"mermaid", "sequence diagrams of Mermaid", "umlseq", "", "", "", likenessOfMermaid, readMermaid},
    {"plantuml", "sequence diagrams of PlantUML", "umlseq", "", "", "", likenessOfPlantuml, readPlantuml},
    {"trace", "OTLP and Jaeger, as JSON", "umlseq bar treemap sunburst", "own time of spans", "services", "", likenessOfTrace, readTrace},
    {"ctags", "universal-ctags --output-format=json", "gfdecl", "", "access and kinds", "", likenessOfCtags, readCtags},
    {"deps", "package-lock.json, cargo metadata, compile_commands.json, CMake's file API, lists", "matrix gftree", "", "cycles", "--by", likenessOfDeps, readDeps},
    {"cloc", "cloc --json --by-file", "treemap sunburst flatbubble bar gftree", "lines of code", "languages", "", likenessOfCloc, readCloc},
    {"scc", "scc --format json --by-file", "treemap sunburst flatbubble bar gftree", "lines of code", "languages", "", likenessOfScc, readScc},
    {"tokei", "tokei --output json --files", "treemap sunburst flatbubble bar gftree", "lines of code", "languages", "", likenessOfTokei, readTokei},
    {"du", "du -a, also with -0 or -b", "treemap sunburst flatbubble bar gftree", "sizes of files", "folders", "--by", likenessOfDu, readDu},
    {"numstat", "git log --numstat", "treemap sunburst flatbubble bar gftree", "lines", "lines changed", "--by", likenessOfNumstat, readNumstat},
    {"lcov", "lcov, geninfo, gcov --json-format", "treemap sunburst flatbubble", "lines of code", "coverage", "", likenessOfLcov, readLcov},
    {"ninja", "ninja's .ninja_log, clang -ftime-trace", "treemap bar sunburst gftree", "time", "folder, or step of the compiler", "--by", likenessOfNinja, readNinja},
    {"size", "size, bloaty --csv, the map of GNU ld", "treemap bar sunburst flatbubble", "bytes", "sort of section", "--by --area", likenessOfSize, readSize},
    {"junit", "JUnit, ctest, GoogleTest, pytest", "treemap bar sunburst", "time, or tests", "result", "--area", likenessOfJunit, readJunit},
    {"csv", "tables with a column of paths", "treemap sunburst flatbubble bar gftree", "the column of --area", "the column of --color", "--path --area --color --separator", likenessOfCsv, readCsv},
};
// clang-format on

} // namespace

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
