#include "companion/page/svg_tags.h"

namespace ORR::Companion {

namespace {

// Behind the tag, which may hold any signs within its quotes.
qsizetype endOfTag(QByteArrayView svg, qsizetype start)
{
    char quote = 0;
    for (qsizetype i = start; i < svg.size(); ++i) {
        const char c = svg[i];
        if (quote)
            quote = c == quote ? 0 : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (c == '>')
            return i + 1;
    }
    return svg.size();
}

} // namespace

QByteArrayView SvgTag::attribute(QByteArrayView attributeName) const
{
    // No value holds the quote that it stands between.
    for (qsizetype at = text.indexOf(attributeName); at >= 0;
         at = text.indexOf(attributeName, at + 1)) {
        const qsizetype value = at + attributeName.size() + 2;
        if (text[at - 1] != ' ' || value > text.size() || text[value - 2] != '='
            || text[value - 1] != '"')
            continue;
        const qsizetype end = text.indexOf('"', value);
        return end < 0 ? QByteArrayView() : text.sliced(value, end - value);
    }
    return {};
}

double SvgTag::number(QByteArrayView attributeName, double otherwise) const
{
    const QByteArrayView value = attribute(attributeName);
    return value.isNull() ? otherwise : value.toDouble();
}

SvgTag nextTag(QByteArrayView svg, qsizetype from)
{
    const qsizetype start = svg.indexOf('<', from);
    if (start < 0)
        return {};
    SvgTag tag;
    tag.text = svg.sliced(start, endOfTag(svg, start) - start);
    tag.isEnd = tag.text.startsWith("</");
    tag.isWhole = tag.text.endsWith("/>");
    const qsizetype first = tag.isEnd ? 2 : 1;
    qsizetype last = first;
    while (last < tag.text.size() && !QByteArrayView(" \n/>").contains(tag.text[last]))
        ++last;
    tag.name = tag.text.sliced(first, last - first);
    return tag;
}

} // namespace ORR::Companion
