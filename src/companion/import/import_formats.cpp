#include "companion/import/import_format.h"

#include "companion/import/ctags_import.h"
#include "companion/import/deps_import.h"
#include "companion/import/dot_import.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// clang-format off
constexpr ImportFormat table[] = {
    {"dot", "any program that writes DOT", "gftree matrix", "", "as in the graph; cycles", "--layout", likenessOfDot, readDot},
    {"ctags", "universal-ctags --output-format=json", "gfdecl", "", "access and kinds", "", likenessOfCtags, readCtags},
    {"deps", "package-lock.json, cargo metadata, compile_commands.json, CMake's file API, lists", "matrix gftree", "", "cycles", "--by", likenessOfDeps, readDeps},
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
