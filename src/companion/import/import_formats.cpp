#include "companion/import/import_format.h"

#include "companion/import/mermaid_import.h"
#include "companion/import/plantuml_import.h"
#include "companion/import/trace_import.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// clang-format off
constexpr ImportFormat table[] = {
    {"mermaid", "sequence diagrams of Mermaid", "umlseq", "", "", "", likenessOfMermaid, readMermaid},
    {"plantuml", "sequence diagrams of PlantUML", "umlseq", "", "", "", likenessOfPlantuml, readPlantuml},
    {"trace", "OTLP and Jaeger, as JSON", "umlseq", "", "", "", likenessOfTrace, readTrace},
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
