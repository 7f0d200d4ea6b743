#include "companion/findings/quoted_text.h"

#include <algorithm>

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

QString quotedText(QByteArrayView utf8)
{
    // A character that is cut here is beyond what is shown.
    constexpr qsizetype longestCharacter = 4; // bytes
    return quotedText(
        QString::fromUtf8(utf8.first(std::min(utf8.size(), longestCharacter * (longest + 1)))));
}

} // namespace ORR::Companion
