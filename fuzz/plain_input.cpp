#include "plain_input.h"

#include "device/markup_reader.h"
#include "graph/subgraph_walk.h"

#include <QSet>

#include <algorithm>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

bool isBareId(const QString &id)
{
    static const QSet<QString> keywords{u"graph"_s, u"node"_s, u"edge"_s, u"subgraph"_s};
    const auto isStop = [](QChar c) { return u"\t\n ,;=]}"_s.contains(c); };
    return !id.isEmpty() && !u"-\"[{"_s.contains(id[0]) && !keywords.contains(id)
        && std::none_of(id.begin(), id.end(), isStop);
}

} // namespace

bool isPlain(const QByteArray &text, const DotGraph &graph)
{
    if (withResolvedEntities(QString::fromUtf8(text)).contains(u'\\'))
        return false;
    const auto isFine = [](const DotSubgraph *subgraph) {
        return !subgraph->id.contains(u'"')
            && std::all_of(subgraph->nodes.begin(), subgraph->nodes.end(),
                           [](const DotNode *node) { return isBareId(node->id); });
    };
    const QList<DotSubgraph *> subgraphs = subgraphsInPreorder(graph.root());
    return std::all_of(subgraphs.begin(), subgraphs.end(), isFine);
}
