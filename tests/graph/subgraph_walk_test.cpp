#include "graph/subgraph_walk.h"

#include "graph/dot_parser.h"
#include "support/golden.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// The ids in the order of the walk, each with a sign for the way down or up. Does not go into "c".
QString walkOf(const char *text)
{
    const auto graph = parseDot(text);
    QString log;
    walkSubgraphs(
        graph->root(),
        [&](DotSubgraph *subgraph) {
            log += u" +"_s + subgraph->id;
            return subgraph->id != "c"_L1;
        },
        [&](DotSubgraph *subgraph) { log += u" -"_s + subgraph->id; });
    return log;
}

} // namespace

TEST(SubgraphWalk, goes_depth_first_in_list_order)
{
    EXPECT_EQ(walkOf("digraph { subgraph a { subgraph b {} } subgraph d {} }"),
              " +name +a +b -b -a +d -d -name");
}

TEST(SubgraphWalk, leaves_only_what_it_went_into)
{
    EXPECT_EQ(walkOf("digraph { subgraph c { subgraph b {} } subgraph d {} }"),
              " +name +c +d -d -name");
}

TEST(SubgraphWalk, lists_parents_before_children)
{
    const auto graph = parseDot("digraph { subgraph a { subgraph b {} } subgraph d {} }");
    QStringList ids;
    for (const DotSubgraph *subgraph : subgraphsInPreorder(graph->root()))
        ids += subgraph->id;
    EXPECT_EQ(ids, (QStringList{u"name"_s, u"a"_s, u"b"_s, u"d"_s}));
}
