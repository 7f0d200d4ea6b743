#include "companion/produce/graph_text.h"

#include "graph/decimal.h"

#include <algorithm>

namespace ORR::Companion {

namespace {

// A text of deeply nested groups would otherwise be made of blanks.
constexpr int deepestIndent = 100;

bool isWordCharacter(QChar c)
{
    return c.unicode() < 0x80 && (c.isLetterOrNumber() || c == u'_');
}

QString written(QStringView text)
{
    QString result = text.toString();
    for (QChar &c : result) {
        if (c == u'\\')
            c = u'/';
        else if (c.category() == QChar::Other_Control)
            c = u' ';
    }
    result.replace(u'"', QStringLiteral("\\\""));
    return result;
}

} // namespace

QByteArray quotedValue(QStringView text)
{
    return '"' + written(text).toUtf8() + '"';
}

void Attributes::add(QByteArrayView name, QByteArrayView value)
{
    if (!written.isEmpty())
        written += ' ';
    written += name;
    written += '=';
    written += value;
}

Attributes &Attributes::text(const char *name, QStringView value)
{
    add(name, quotedValue(value));
    return *this;
}

Attributes &Attributes::number(const char *name, double value)
{
    add(name, '"' + Graph::numberText(value).toUtf8() + '"');
    return *this;
}

Attributes &Attributes::label(QStringView text)
{
    QByteArray lines = "\"";
    for (const QStringView line : text.split(u'\n')) {
        if (lines.size() > 1)
            lines += "\\n";
        lines += ORR::Companion::written(line).toUtf8();
    }
    add("label", lines + '"');
    return *this;
}

Attributes &Attributes::fact(QStringView name, QStringView value)
{
    QByteArray word = name.toUtf8();
    std::replace_if(
        word.begin(), word.end(), [](char c) { return !isWordCharacter(QLatin1Char(c)); }, '_');
    if (word.isEmpty() || (word[0] >= '0' && word[0] <= '9'))
        word.prepend('_');
    add(word, quotedValue(value));
    return *this;
}

GraphText::GraphText(QStringView name)
    : written("digraph " + (name.isEmpty() ? QByteArray() : quotedValue(name) + ' ') + "{\n")
{
}

void GraphText::indent()
{
    written.append(qsizetype(2) * std::min(depth, deepestIndent), ' ');
}

void GraphText::statement(QByteArrayView word, const Attributes &attributes)
{
    indent();
    written += word;
    written += " [";
    written += attributes.bytes();
    written += "];\n";
}

void GraphText::graph(const Attributes &attributes)
{
    statement("graph", attributes);
}

void GraphText::nodeDefaults(const Attributes &attributes)
{
    statement("node", attributes);
}

void GraphText::edgeDefaults(const Attributes &attributes)
{
    statement("edge", attributes);
}

GraphText::Id GraphText::beginGroup(const Attributes &attributes)
{
    Id id = "cluster_" + QByteArray::number(++count);
    indent();
    written += "subgraph " + id + " {\n";
    ++depth;
    graph(attributes);
    return id;
}

void GraphText::endGroup()
{
    --depth;
    indent();
    written += "}\n";
}

GraphText::Id GraphText::node(const Attributes &attributes)
{
    Id id = "__N" + QByteArray::number(++count);
    statement(id, attributes);
    return id;
}

void GraphText::edge(const Id &tail, const Id &head, const Attributes &attributes)
{
    statement(tail + " -> " + head, attributes);
}

QByteArray GraphText::finished()
{
    written += "}\n";
    return written;
}

} // namespace ORR::Companion
