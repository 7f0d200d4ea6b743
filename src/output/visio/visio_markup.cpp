#include "output/visio/visio_markup.h"

namespace ORR::Graph {

using namespace Qt::StringLiterals;

void VisioMarkup::start(const char *name, Attributes attributes)
{
    bytes.append(depth, ' ');
    bytes.append('<');
    bytes.append(name);
    for (const Attribute &attribute : attributes) {
        bytes.append(' ');
        bytes.append(attribute.name);
        bytes.append("=\"");
        bytes.append(attribute.value);
        bytes.append('"');
    }
}

void VisioMarkup::open(const char *name, Attributes attributes)
{
    start(name, attributes);
    bytes.append(">\n");
    ++depth;
}

void VisioMarkup::close(const char *name)
{
    --depth;
    bytes.append(depth, ' ');
    bytes.append("</");
    bytes.append(name);
    bytes.append(">\n");
}

void VisioMarkup::empty(const char *name, Attributes attributes)
{
    start(name, attributes);
    bytes.append("/>\n");
}

void VisioMarkup::text(const char *name, Attributes attributes, const QByteArray &content)
{
    start(name, attributes);
    bytes.append('>');
    bytes.append(content);
    bytes.append("</");
    bytes.append(name);
    bytes.append(">\n");
}

QString visioQuoted(const QString &text)
{
    QString quoted = text;
    return quoted.replace(u'"', "\"\""_L1);
}

} // namespace ORR::Graph
