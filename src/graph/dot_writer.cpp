#include "graph/dot_writer.h"

#include "graph/html_text.h"
#include "graph/subgraph_walk.h"

#include <algorithm>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

constexpr int blanksPerLevel = 2;
constexpr int deepestIndentation = 100; // in levels

QString indentation(int depth)
{
    return QString(qsizetype(blanksPerLevel) * std::min(depth, deepestIndentation), u' ');
}

QString quotedValue(const QString &value)
{
    if (!value.contains(u'"'))
        return value;
    QString escaped = value;
    return escaped.replace(u'"', "\\\""_L1);
}

void writeHead(int depth, const DotSubgraph *subgraph, QTextStream &stream)
{
    if (depth == 0)
        stream << "digraph"_L1;
    else
        stream << indentation(depth) << "subgraph"_L1;
    stream << " \""_L1 << subgraph->id << "\" {\n"_L1;
}

void writeDefaults(int depth, const DotSubgraph *subgraph, QTextStream &stream)
{
    const bool plain = subgraph->plainLabels;
    writeStatement(depth, u"graph"_s, subgraph->attributes, stream, true, plain);
    writeStatement(depth, u"node"_s, subgraph->nodeDefaults, stream, true, plain);
    writeStatement(depth, u"edge"_s, subgraph->edgeDefaults, stream, true, plain);
}

void writeMembers(int depth, const DotSubgraph *subgraph, QTextStream &stream)
{
    const bool plain = subgraph->plainLabels;
    // In a subgraph the statement is what puts the node there, so it is written even when it says
    // nothing else.
    const bool skipEmptyNodes = depth == 1;
    for (const DotNode *node : subgraph->nodes)
        writeStatement(depth, node->id, node->attributes, stream, skipEmptyNodes, plain);
    for (const DotEdge *edge : subgraph->edges) {
        const QString name = edge->tail->id + " -> "_L1 + edge->head->id;
        writeStatement(depth, name, edge->attributes, stream, false, plain);
    }
}

} // namespace

void writeDot(DotSubgraph *root, QTextStream &stream, bool plainLabels)
{
    root->plainLabels = plainLabels;
    writeSubgraph(0, root, stream);
}

void writeSubgraph(int depth, DotSubgraph *subgraph, QTextStream &stream)
{
    int level = depth;
    walkSubgraphs(
        subgraph,
        [&](DotSubgraph *entered) {
            writeHead(level, entered, stream);
            ++level;
            writeDefaults(level, entered, stream);
            for (DotSubgraph *child : std::as_const(entered->subgraphs))
                child->plainLabels = entered->plainLabels;
            return true;
        },
        [&](DotSubgraph *left) {
            writeMembers(level, left, stream);
            --level;
            stream << indentation(level) << "}\n"_L1;
        });
}

void writeStatement(int depth, const QString &name, const AttributeMap &attributes,
                    QTextStream &stream, bool skipIfEmpty, bool plainLabels)
{
    if (skipIfEmpty && attributes.isEmpty())
        return;
    stream << indentation(depth) << name;
    auto separator = " ["_L1;
    for (const AttributeMap::Entry &entry : attributes) {
        const QString value = plainLabels ? plainLabelText(entry.value) : entry.value;
        stream << separator << entry.name.text() << "=\""_L1 << quotedValue(value) << u'"';
        separator = ", "_L1;
    }
    if (!attributes.isEmpty())
        stream << u']';
    stream << ";\n"_L1;
}

QString plainLabelText(const QString &html)
{
    QString text = withResolvedEntities(withoutTags(html));
    text.replace("\\l"_L1, "\\n"_L1);
    return text;
}

} // namespace ORR::Graph
