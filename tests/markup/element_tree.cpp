#include "markup/element_tree.h"

#include "graph/dot_parser.h"
#include "graph/subgraph_walk.h"

#include <gtest/gtest.h>

#include <QXmlStreamReader>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QString namesOf(const AttributeMap &attributes)
{
    QStringList names;
    for (const auto &entry : attributes)
        names += entry.name.text();
    names.sort();
    return names.join(u' ');
}

} // namespace

QStringList elementTree(const QByteArray &xml)
{
    QStringList tree;
    int depth = 0;
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::EndElement)
            --depth;
        if (token != QXmlStreamReader::StartElement)
            continue;
        QString line = QString(depth++, u' ') + reader.qualifiedName().toString();
        for (const QXmlStreamAttribute &attribute : reader.attributes())
            line += u' ' + attribute.qualifiedName().toString();
        tree += line;
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString() << "\n"
                                    << xml.toStdString();
    return tree;
}

QStringList graphTree(const QByteArray &dot)
{
    const std::unique_ptr<DotGraph> graph = parseDot(dot);
    EXPECT_TRUE(graph) << dot.toStdString();
    if (!graph)
        return {};
    QStringList tree;
    const auto enter = [&](DotSubgraph *subgraph) {
        tree += subgraph->id + u" {"_s + namesOf(subgraph->attributes);
        for (const DotNode *node : std::as_const(subgraph->nodes))
            tree += node->id + u' ' + namesOf(node->attributes);
        for (const DotEdge *edge : std::as_const(subgraph->edges))
            tree += edge->tail->id + u"->"_s + edge->head->id + u' ' + namesOf(edge->attributes);
        return true;
    };
    walkSubgraphs(graph->root(), enter, [](DotSubgraph *) {});
    return tree;
}
