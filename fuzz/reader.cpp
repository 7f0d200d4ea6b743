// The reader and the writer: the same text gives the same graph, and what the writer makes of it is
// read as the same graph again, as far as the dialect can write it.
#include "fuzz_target.h"
#include "graph/dot_parser.h"
#include "graph/dot_writer.h"
#include "graph/subgraph_walk.h"

#include <QSet>

#include <algorithm>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QByteArray written(const DotGraph &graph, bool plainLabels = false)
{
    QString text;
    QTextStream stream(&text);
    writeDot(graph.root(), stream, plainLabels);
    stream.flush();
    return text.toUtf8();
}

// What stands between quotes. A backslash in front of a line feed or the closing quote is lost, and
// so is a byte order mark in front of everything.
bool isWritable(const QString &value)
{
    return !value.endsWith(u'\\') && !value.contains(u"\\\n"_s) && !value.startsWith(u'\ufeff');
}

// What stands bare: names of attributes and ids of nodes.
bool isBareWord(const QString &word)
{
    const auto isStop = [](QChar c) { return u"\t\n ,;=]}"_s.contains(c); };
    return !word.isEmpty() && !u"-\"[{\ufeff"_s.contains(word[0])
        && std::none_of(word.begin(), word.end(), isStop);
}

bool areWritable(const AttributeMap &attributes)
{
    return std::all_of(attributes.begin(), attributes.end(), [](const AttributeMap::Entry &entry) {
        return isBareWord(entry.name.text()) && isWritable(entry.value);
    });
}

bool isWritable(const DotNode *node)
{
    static const QSet<QString> keywords{u"graph"_s, u"node"_s, u"edge"_s, u"subgraph"_s};
    return isBareWord(node->id) && !keywords.contains(node->id) && areWritable(node->attributes);
}

bool isWritable(const DotEdge *edge)
{
    return areWritable(edge->attributes);
}

bool isWritable(const DotSubgraph *subgraph)
{
    const auto isFine = [](const auto *object) { return isWritable(object); };
    return isWritable(subgraph->id) && !subgraph->id.contains(u'"')
        && areWritable(subgraph->attributes) && areWritable(subgraph->nodeDefaults)
        && areWritable(subgraph->edgeDefaults)
        && std::all_of(subgraph->nodes.begin(), subgraph->nodes.end(), isFine)
        && std::all_of(subgraph->edges.begin(), subgraph->edges.end(), isFine);
}

// Whether the dialect can write the whole graph. It can't if an id was made up that stood in the
// text as well.
bool isWritable(const DotGraph &graph)
{
    bool writable = true;
    QSet<QString> ids;
    const auto enter = [&](const DotSubgraph *subgraph) {
        writable = writable && isWritable(subgraph);
        for (const DotNode *node : subgraph->nodes) {
            writable = writable && !ids.contains(node->id);
            ids.insert(node->id);
        }
        return true;
    };
    walkSubgraphs(graph.root(), enter, [](DotSubgraph *) {});
    return writable;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray input = inputText(data, size);
    const std::unique_ptr<DotGraph> graph = parseDot(input);
    if (!graph)
        return 0;
    const QByteArray text = written(*graph);
    require(written(*parseDot(input)) == text, "the same graph from the same text");
    const std::unique_ptr<DotGraph> again = parseDot(text);
    if (isWritable(*graph))
        require(again && written(*again) == text, "a graph that is written reads back the same");
    written(*graph, true);
    return 0;
}
