#include "output/graph_summary.h"

#include "device/rich_text.h"
#include "graph/subgraph_walk.h"

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// The escapes that end a line of a label.
QString withoutLineEnds(QString label)
{
    for (const QString &escape : {u"\\n"_s, u"\\l"_s, u"\\r"_s})
        label.replace(escape, u" "_s);
    return label;
}

QString counted(qsizetype count, const QString &noun)
{
    return QString::number(count) + u' ' + noun + (count == 1 ? QString() : u"s"_s);
}

} // namespace

QString graphTitle(const DotGraph *graph)
{
    if (!graph)
        return {};
    static const AttributeName name(u"label"_s);
    const QString label = graph->root()->attributes.value(name);
    const QString title =
        (graph->htmlLabels() ? withoutMarkup(label) : withoutLineEnds(label)).simplified();
    const bool isNamed = graph->name() != graph->root()->id;
    return title.isEmpty() && isNamed ? graph->name().simplified() : title;
}

QString graphCounts(const DotGraph *graph)
{
    if (!graph)
        return {};
    qsizetype nodes = 0;
    qsizetype edges = 0;
    const QList<DotSubgraph *> subgraphs = subgraphsInPreorder(graph->root());
    for (const DotSubgraph *subgraph : subgraphs) {
        nodes += subgraph->nodes.size();
        edges += subgraph->edges.size();
    }
    return counted(nodes, u"node"_s) + u", "_s + counted(edges, u"edge"_s) + u", "_s
        + counted(subgraphs.size() - 1, u"cluster"_s);
}

} // namespace ORR::Graph
