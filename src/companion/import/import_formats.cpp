#include "companion/import/import_format.h"
#include "companion/import/junit_import.h"
#include "companion/import/lcov_import.h"
#include "companion/import/ninja_import.h"
#include "companion/import/size_import.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// clang-format off
// Name, what writes it, engines, sizes, colours, options.
constexpr ImportFormat table[] = {
    {"lcov", "lcov, geninfo, gcov --json-format", "treemap sunburst flatbubble", "lines of code", "coverage", "", likenessOfLcov, readLcov},
    {"ninja", "ninja's .ninja_log, clang -ftime-trace", "treemap bar sunburst gftree", "time", "folder, or step of the compiler", "--by", likenessOfNinja, readNinja},
    {"size", "size, bloaty --csv, the map of GNU ld", "treemap bar sunburst flatbubble", "bytes", "sort of section", "--by --area", likenessOfSize, readSize},
    {"junit", "JUnit, ctest, GoogleTest, pytest", "treemap bar sunburst", "time, or tests", "result", "--area", likenessOfJunit, readJunit},
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
