#include "companion/findings/quoted_text.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr qsizetype longest = 60; // UTF-16 units

} // namespace

QString quotedText(const QString &text)
{
    if (text.size() <= longest)
        return u'\'' + text + u'\'';
    const bool isWithinCharacter = text.at(longest).isLowSurrogate();
    return u'\'' + text.first(isWithinCharacter ? longest - 1 : longest) + "...'"_L1;
}

} // namespace ORR::Companion
