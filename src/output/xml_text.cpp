#include "output/xml_text.h"

#include <algorithm>

namespace ORR::Graph {

namespace {

bool isForbiddenUnit(QChar c)
{
    const char16_t u = c.unicode();
    return (u < 0x20 && u != u'\t' && u != u'\n' && u != u'\r') || u >= 0xFFFE;
}

} // namespace

QString withoutForbiddenXml(const QString &text)
{
    const bool clean = std::none_of(text.cbegin(), text.cend(),
                                    [](QChar c) { return isForbiddenUnit(c) || c.isSurrogate(); });
    if (clean)
        return text;
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            result.append(c);
            result.append(text.at(++i));
        } else if (!c.isSurrogate() && !isForbiddenUnit(c)) {
            result.append(c);
        }
    }
    return result;
}

QString xmlAttributeValue(const QString &text)
{
    return withoutForbiddenXml(text).toHtmlEscaped();
}

} // namespace ORR::Graph
