#include "companion/import/import_format.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

std::span<const ImportFormat> importFormats()
{
    return {};
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
