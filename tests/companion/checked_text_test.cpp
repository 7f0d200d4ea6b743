#include "companion/check/checked_text.h"

#include "graph/dot_parser.h"
#include "graph/dot_tokenizer.h"

#include <gtest/gtest.h>

#include <string>

using namespace ORR::Companion;
using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// A text that has been heard, and the graph that its objects belong to.
struct Heard
{
    explicit Heard(const QByteArray &input)
        : bytes(input), graph(parseDot(input, checked).graph) { }

    // What stands at a place.
    std::string at(qsizetype offset) const
    {
        return bytes.sliced(offset, identifierEnd(bytes, offset) - offset).toStdString();
    }

    QByteArray bytes;
    CheckedText checked;
    std::unique_ptr<DotGraph> graph;
};

QStringList undeclared(const Heard &heard)
{
    QStringList ids;
    for (const DotNode *node : heard.checked.undeclaredNodes())
        ids += node->id;
    ids.sort();
    return ids;
}

} // namespace

TEST(CheckedText, has_the_subgraphs_with_the_root_ahead)
{
    const Heard heard("digraph g { subgraph { } subgraph \"s\" { } }");
    const auto &subgraphs = heard.checked.subgraphs();
    ASSERT_EQ(subgraphs.size(), 3);
    EXPECT_EQ(subgraphs[0].subgraph, heard.graph->root());
    EXPECT_EQ(heard.at(subgraphs[0].keyword), "digraph");
    EXPECT_EQ(heard.at(subgraphs[0].id), "g");
    EXPECT_EQ(subgraphs[1].id, -1);
    EXPECT_EQ(heard.at(subgraphs[2].keyword), "subgraph");
    EXPECT_EQ(heard.at(subgraphs[2].id), "\"s\"");
}

TEST(CheckedText, has_each_node_at_its_first_mention)
{
    const Heard heard("digraph { a -> b; b; c; a -> c }");
    const auto &nodes = heard.checked.nodes();
    ASSERT_EQ(nodes.size(), 3);
    EXPECT_EQ(nodes[0].node->id, u"a"_s);
    EXPECT_EQ(nodes[1].place, heard.bytes.indexOf('b'));
    EXPECT_TRUE(nodes[1].byEdge);
    EXPECT_EQ(nodes[2].place, heard.bytes.indexOf('c'));
    EXPECT_FALSE(nodes[2].byEdge);
}

TEST(CheckedText, knows_the_nodes_that_only_edges_mention)
{
    EXPECT_EQ(undeclared(Heard("digraph { a -> b; b; b; c; c -> d; d -> a }")),
              (QStringList{u"a"_s, u"d"_s}));
    EXPECT_EQ(undeclared(Heard("digraph { a -> b; b; a [x=1] }")), QStringList());
}

TEST(CheckedText, has_the_edges_with_the_places_of_their_ends)
{
    const Heard heard("digraph { a -> bb; bb -> bb [x=1] }");
    const auto &edges = heard.checked.edges();
    ASSERT_EQ(edges.size(), 2);
    EXPECT_EQ(heard.at(edges[0].tail), "a");
    EXPECT_EQ(heard.at(edges[0].head), "bb");
    EXPECT_EQ(edges[1].head, heard.bytes.lastIndexOf("bb"));
    EXPECT_EQ(edges[1].edge->tail, edges[1].edge->head);
}

TEST(CheckedText, has_the_attributes_list_by_list)
{
    const Heard heard("digraph { graph [l=1]; node [m=2, n=\"3\"]; edge [o=4];\n"
                      "a [p=5]; b []; a -> b [q=6] subgraph s { graph [r=7] } }");
    const auto &lists = heard.checked.lists();
    const auto &attributes = heard.checked.attributes();
    ASSERT_EQ(lists.size(), 6);
    std::string all;
    for (const CheckedList &list : lists) {
        for (qsizetype i = list.first; i < heard.checked.endOf(list); ++i) {
            const CheckedAttribute &attribute = attributes[size_t(i)];
            EXPECT_EQ(heard.at(attribute.nameOffset), attribute.name.text().toStdString());
            EXPECT_TRUE(attributesOf(list).contains(attribute.name));
            all += heard.at(attribute.nameOffset) + heard.at(attribute.valueOffset);
        }
        all += ' ';
    }
    EXPECT_EQ(all, "l1 m2n\"3\" o4 p5 q6 r7 ");
    EXPECT_EQ(lists[1].target, AttributeTarget::NodeDefaults);
    EXPECT_EQ(lists[1].object, heard.graph->root());
    EXPECT_EQ(lists[3].object, heard.graph->findNode(u"a"_s));
    EXPECT_EQ(lists[5].object, heard.graph->findSubgraph(u"s"_s));
}
