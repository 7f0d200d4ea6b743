#include "graph/object_numbers.h"

#include "support/golden.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

TEST(ObjectNumbers, inherit_unless_only_the_object_itself_is_asked)
{
    DotGraph graph;
    DotSubgraph *inner = graph.createSubgraph(graph.root(), u"inner"_s);
    DotNode *node = graph.createNode(inner, QString(), u"a"_s);
    graph.root()->nodeDefaults.insert(u"area"_s, u"7.5"_s);
    graph.setGraphAttribute(graph.root(), u"gap"_s, u"3"_s);
    EXPECT_EQ(nodeNumber(&graph, node, u"area"_s), 7.5);
    EXPECT_EQ(ownNumber(node, u"area"_s), 0.0);
    EXPECT_EQ(graphNumber(&graph, inner, u"gap"_s), 3.0);
    EXPECT_EQ(ownNumber(inner, u"gap"_s), 0.0);
    graph.setNodeAttribute(node, u"area"_s, u"1e3"_s);
    EXPECT_EQ(ownNumber(node, u"area"_s), 1000.0);
}

TEST(ObjectNumbers, are_0_where_none_stands)
{
    DotGraph graph;
    graph.setGraphAttribute(graph.root(), u"gap"_s, u"wide"_s);
    EXPECT_EQ(graphNumber(&graph, graph.root(), u"gap"_s), 0.0);
    EXPECT_EQ(graphNumber(&graph, graph.root(), u"other"_s), 0.0);
}
