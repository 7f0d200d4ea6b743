#pragma once

#include "companion/findings/nearest_word.h"

namespace ORR::Companion {

// What is added to a message that there is no such name; empty if none of the names is near.
inline QString suggested(const QString &name, const QStringList &names)
{
    const QString suggestion = didYouMean(name, names);
    return suggestion.isEmpty() ? QString() : QStringLiteral("; ") + suggestion;
}

} // namespace ORR::Companion
