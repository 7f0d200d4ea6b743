#include "layout/sequence/uml_reading.h"

#include "graph/dot_parser.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

// What the one node is on a diagram.
std::optional<UmlNode> nodeOf(const QByteArray &attributes)
{
    const auto graph = parseDot("digraph { a [" + attributes + "] }");
    return readNode(graph.get(), graph->root()->nodes.at(0));
}

// What the one edge is between an activation at (1, 2) and an object at (3, 4).
std::optional<UmlEdge> edgeOf(const QByteArray &attributes, qsizetype tail = 0, qsizetype head = 1)
{
    const auto graph = parseDot("digraph { a -> b [" + attributes + "] }");
    const QList<UmlNode> nodes{{UmlNode::Activation, {1, 2}}, {UmlNode::Object, {3, 4}}};
    return readEdge(graph.get(), graph->root()->edges.at(0), nodes, tail, head);
}

} // namespace

TEST(ReadNode, knows_the_kinds_by_their_words)
{
    EXPECT_EQ(nodeOf("uml=object")->kind, UmlNode::Object);
    EXPECT_EQ(nodeOf("uml=activation")->kind, UmlNode::Activation);
    EXPECT_EQ(nodeOf("uml=foundmessage")->kind, UmlNode::FoundMessage);
    EXPECT_EQ(nodeOf("uml=spacer")->kind, UmlNode::Spacer);
    EXPECT_FALSE(nodeOf("uml=Object"));
    EXPECT_FALSE(nodeOf("row=1"));
}

TEST(ReadNode, reads_the_cell_and_what_its_kind_has)
{
    const std::optional<UmlNode> bar = nodeOf("uml=activation, row=3, col=2, nesting=4");
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->cell.row, 3);
    EXPECT_EQ(bar->cell.col, 2);
    EXPECT_EQ(bar->nesting, 4);
    EXPECT_EQ(bar->endRow, 3); // its own row, until a return comes from it
    const std::optional<UmlNode> spacer = nodeOf(R"(uml=spacer, width="-1", height=30)");
    ASSERT_TRUE(spacer);
    EXPECT_EQ(spacer->room, QSize(sizeOfLabel, 30));
    EXPECT_EQ(spacer->xAlign, CellAlign::Centre);
    EXPECT_EQ(spacer->yAlign, CellAlign::Centre);
}

TEST(ReadEdge, places_each_kind_on_the_column_of_its_tail_and_a_row_of_its_own_rule)
{
    const std::optional<UmlEdge> line = edgeOf("uml=lifeline, row=9");
    ASSERT_TRUE(line);
    EXPECT_EQ(line->kind, UmlEdge::LifeLine);
    EXPECT_EQ(line->cell.row, 1);
    EXPECT_EQ(line->cell.col, 2);
    const std::optional<UmlEdge> message = edgeOf("uml=message, row=9");
    ASSERT_TRUE(message);
    EXPECT_EQ(message->kind, UmlEdge::Message);
    EXPECT_EQ(message->cell.row, 3);
    EXPECT_EQ(message->cell.col, 2);
    EXPECT_EQ(message->tail, 0);
    EXPECT_EQ(message->head, 1);
    const std::optional<UmlEdge> back = edgeOf("uml=return, row=9");
    ASSERT_TRUE(back);
    EXPECT_EQ(back->kind, UmlEdge::Return);
    EXPECT_EQ(back->cell.row, 9);
    EXPECT_EQ(back->cell.col, 2);
}

TEST(ReadEdge, makes_a_return_visible_by_one_word)
{
    EXPECT_TRUE(edgeOf("uml=return, visible=true")->visible);
    EXPECT_FALSE(edgeOf("uml=return, visible=True")->visible);
    EXPECT_FALSE(edgeOf("uml=return")->visible);
    EXPECT_TRUE(edgeOf("uml=message, visible=false")->visible);
}

TEST(ReadEdge, knows_no_other_kind_and_no_return_from_anything_but_an_activation)
{
    EXPECT_FALSE(edgeOf("uml=Message"));
    EXPECT_FALSE(edgeOf("label=x"));
    EXPECT_FALSE(edgeOf("uml=return", 1, 0));
    EXPECT_TRUE(edgeOf("uml=message", 1, 0));
}

TEST(ReadFragment, starts_as_one_cell_that_holds_nothing)
{
    const auto graph = parseDot("digraph { subgraph f { graph [row=2, col=5] } }");
    DotSubgraph *subgraph = graph->root()->subgraphs.at(0);
    const UmlFragment fragment = readFragment(graph.get(), subgraph);
    EXPECT_EQ(fragment.subgraph, subgraph);
    EXPECT_EQ(fragment.row, 2);
    EXPECT_EQ(fragment.cell().col, 5);
    EXPECT_EQ(fragment.cells.lastRow, 2);
    EXPECT_EQ(fragment.cells.lastCol, 5);
    EXPECT_EQ(fragment.cells.nesting, 0);
    EXPECT_TRUE(fragment.sections.isEmpty());
    EXPECT_TRUE(fragment.contents.isEmpty());
    EXPECT_EQ(readSection(graph.get(), subgraph).row, 2);
    EXPECT_EQ(readSection(graph.get(), subgraph).subgraph, subgraph);
}

TEST(NodeForSection, has_the_attributes_of_the_section_and_the_defaults_around_it)
{
    const auto graph = parseDot("digraph { subgraph f { node [fontcolor=red, label=around] "
                                "subgraph s { graph [label=own] node [fontcolor=blue] } } }");
    const DotSubgraph *section = graph->root()->subgraphs.at(0)->subgraphs.at(0);
    const std::unique_ptr<DotNode> node = nodeForSection(section);
    EXPECT_EQ(node->id, u"s"_s);
    EXPECT_EQ(graph->nodeAttribute(node.get(), u"label"_s), u"own"_s);
    EXPECT_EQ(graph->nodeAttribute(node.get(), u"fontcolor"_s), u"red"_s);
}
