#include "output/visio/visio_markup.h"

#include <algorithm>
#include <iterator>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

char *VisioMarkup::appended(qsizetype length)
{
    const qsizetype before = bytes.size();
    bytes.resize(before + length);
    return std::next(bytes.data(), before);
}

// Room for all of it is made at once, and the pieces are copied into it: most of a drawing is made
// of such pieces of a few bytes.
void VisioMarkup::start(QByteArrayView name, Attributes attributes, QByteArrayView end)
{
    constexpr qsizetype around = 4; // a blank, "=" and two quotes
    qsizetype length = depth + 1 + name.size() + end.size();
    for (const Attribute &attribute : attributes)
        length += around + attribute.name.size() + attribute.value.size();
    char *out = appended(length);
    const auto put = [&out](QByteArrayView text) {
        out = std::copy(text.cbegin(), text.cend(), out);
    };
    out = std::fill_n(out, depth, ' ');
    *out++ = '<';
    put(name);
    for (const Attribute &attribute : attributes) {
        *out++ = ' ';
        put(attribute.name);
        *out++ = '=';
        *out++ = '"';
        put(attribute.value);
        *out++ = '"';
    }
    put(end);
}

void VisioMarkup::end(QByteArrayView name)
{
    bytes.append("</").append(name).append(">\n");
}

void VisioMarkup::open(QByteArrayView name, Attributes attributes)
{
    start(name, attributes, ">\n");
    ++depth;
}

void VisioMarkup::close(QByteArrayView name)
{
    --depth;
    std::fill_n(appended(depth), depth, ' ');
    end(name);
}

void VisioMarkup::empty(QByteArrayView name, Attributes attributes)
{
    start(name, attributes, "/>\n");
}

void VisioMarkup::text(QByteArrayView name, Attributes attributes, const QByteArray &content)
{
    start(name, attributes, ">");
    bytes.append(content);
    end(name);
}

QString visioQuoted(const QString &text)
{
    QString quoted = text;
    return quoted.replace(u'"', "\"\""_L1);
}

} // namespace ORR::Graph
