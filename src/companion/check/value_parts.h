#pragma once

#include <QString>

namespace ORR::Companion {

// The first part between two of the separators that is not meant; null if all of them are. A value
// may have as many parts as bytes, so they are not collected.
template <typename IsMeant>
QString firstBadPart(const QString &value, QStringView separators, const IsMeant &isMeantPart)
{
    qsizetype start = 0;
    for (qsizetype i = 0; i <= value.size(); ++i) {
        if (i < value.size() && !separators.contains(value.at(i)))
            continue;
        const QString part = value.sliced(start, i - start);
        if (!isMeantPart(part))
            return part.isNull() ? QStringLiteral("") : part;
        start = i + 1;
    }
    return {};
}

} // namespace ORR::Companion
