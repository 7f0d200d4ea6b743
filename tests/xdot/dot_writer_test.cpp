#include "graph/dot_writer.h"

#include "graph/dot_parser.h"
#include "support/golden.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// What the root of every graph says for itself.
const QString defaults =
    u"  graph [bgcolor=\"none\", fillcolor=\"#FFFFFF\", fontcolor=\"#000000\", fontname=\"Arial\","
    " fontsize=\"12\", label=\"\"];\n"
    "  node [fillcolor=\"#FFFFFF\", fontcolor=\"#000000\", color=\"#000000\", fontname=\"Arial\","
    " fontsize=\"12\", label=\"\", style=\"filled\"];\n"
    "  edge [fontcolor=\"#000000\", color=\"#000000\", fontname=\"Arial\", fontsize=\"12\","
    " label=\"\"];\n"_s;

QString written(const DotGraph &graph, bool plainLabels = false)
{
    QString text;
    QTextStream stream(&text);
    writeDot(graph.root(), stream, plainLabels);
    return text;
}

// The text behind the defaults of the root, without the last brace.
QString statements(const DotGraph &graph)
{
    const QString head = u"digraph \"name\" {\n"_s + defaults;
    const QString text = written(graph);
    EXPECT_TRUE(text.startsWith(head)) << text.toStdString();
    EXPECT_TRUE(text.endsWith(u"}\n"_s));
    return text.sliced(head.size()).chopped(2);
}

QString statement(int depth, const QString &name, const AttributeMap &attributes,
                  bool skipIfEmpty = false, bool plainLabels = false)
{
    QString text;
    QTextStream stream(&text);
    writeStatement(depth, name, attributes, stream, skipIfEmpty, plainLabels);
    return text;
}

} // namespace

TEST(DotWriter, an_empty_graph_writes_its_defaults)
{
    EXPECT_EQ(written(DotGraph()), u"digraph \"name\" {\n"_s + defaults + u"}\n"_s);
}

TEST(DotWriter, a_node_in_the_root_stands_behind_two_blanks)
{
    DotGraph graph;
    graph.createNode(graph.root(), u"x"_s, u"a"_s);
    EXPECT_EQ(statements(graph), u"  a [label=\"x\"];\n"_s);
}

TEST(DotWriter, a_node_without_attributes_is_left_out_of_the_root_only)
{
    DotGraph graph;
    DotSubgraph *inner = graph.createSubgraph(graph.root(), u"s"_s);
    graph.createNode(graph.root(), {}, u"a"_s);
    graph.createNode(inner, {}, u"b"_s);
    EXPECT_EQ(statements(graph), u"  subgraph \"s\" {\n    b;\n  }\n"_s);
}

TEST(DotWriter, indents_four_blanks_for_a_subgraph_in_a_subgraph_and_six_for_its_statements)
{
    DotGraph graph;
    DotSubgraph *outer = graph.createSubgraph(graph.root(), u"outer"_s);
    DotSubgraph *inner = graph.createSubgraph(outer, u"inner"_s);
    graph.setGraphAttribute(inner, u"k"_s, u"v"_s);
    graph.createNode(inner, {}, u"n"_s);
    EXPECT_EQ(statements(graph),
              u"  subgraph \"outer\" {\n"
              "    subgraph \"inner\" {\n"
              "      graph [k=\"v\"];\n"
              "      n;\n"
              "    }\n"
              "  }\n"_s);
}

TEST(DotWriter, writes_defaults_then_subgraphs_then_nodes_then_edges)
{
    DotGraph graph;
    DotSubgraph *s = graph.createSubgraph(graph.root(), u"s"_s);
    DotNode *a = graph.createNode(s, {}, u"a"_s);
    DotNode *b = graph.createNode(s, {}, u"b"_s);
    graph.createEdge(b, a, {});
    graph.createEdge(a, b, u"e"_s);
    graph.createSubgraph(s, u"t"_s);
    graph.declareAttribute(s, u"k"_s, u"v"_s, u"graph,node,edge"_s);
    EXPECT_EQ(statements(graph),
              u"  subgraph \"s\" {\n"
              "    graph [k=\"v\"];\n"
              "    node [k=\"v\"];\n"
              "    edge [k=\"v\"];\n"
              "    subgraph \"t\" {\n"
              "    }\n"
              "    a;\n"
              "    b;\n"
              "    b -> a;\n"
              "    a -> b [label=\"e\"];\n"
              "  }\n"_s);
}

TEST(DotWriter, an_edge_is_written_without_attributes_also_in_the_root)
{
    DotGraph graph;
    DotNode *a = graph.createNode(graph.root(), {}, u"a"_s);
    graph.createEdge(a, a, {});
    EXPECT_EQ(statements(graph), u"  a -> a;\n"_s);
}

TEST(DotWriter, ids_of_subgraphs_are_not_escaped)
{
    DotGraph graph;
    graph.createSubgraph(graph.root(), u"a\"b"_s);
    EXPECT_EQ(statements(graph), u"  subgraph \"a\"b\" {\n  }\n"_s);
}

TEST(DotWriter, attributes_keep_the_order_of_their_first_insertion)
{
    AttributeMap attributes{{u"z"_s, u"1"_s}, {u"a"_s, u"2"_s}};
    attributes.insert(u"m"_s, u"3"_s);
    attributes.insert(u"z"_s, u"4"_s);
    EXPECT_EQ(statement(0, u"n"_s, attributes), u"n [z=\"4\", a=\"2\", m=\"3\"];\n"_s);
}

TEST(DotWriter, an_empty_statement_is_skipped_if_asked_to)
{
    EXPECT_EQ(statement(1, u"n"_s, {}, true), u""_s);
    EXPECT_EQ(statement(1, u"n"_s, {}, false), u"  n;\n"_s);
    EXPECT_EQ(statement(0, u"n"_s, {{u"k"_s, u""_s}}, true), u"n [k=\"\"];\n"_s);
}

TEST(DotWriter, a_double_quote_in_a_value_gets_a_backslash)
{
    EXPECT_EQ(statement(0, u"n"_s, {{u"k"_s, u"\"a\"b"_s}}), u"n [k=\"\\\"a\\\"b\"];\n"_s);
}

TEST(DotWriter, backslashes_are_not_doubled)
{
    EXPECT_EQ(statement(0, u"n"_s, {{u"k"_s, u"a\\nb\\"_s}}), u"n [k=\"a\\nb\\\"];\n"_s);
}

TEST(DotWriter, values_read_back_the_same)
{
    for (const QString &value : {u"say \"x\""_s, u"\"\""_s, u"a\\\"b"_s, u"a\nb"_s, u"ä€😀"_s,
                                 u"[x, y]; {z}"_s, u""_s, u"\\N\\l"_s}) {
        DotGraph graph;
        graph.setNodeAttribute(graph.createNode(graph.root(), {}, u"a"_s), u"k"_s, value);
        const std::unique_ptr<DotGraph> read = parseDot(written(graph).toUtf8());
        ASSERT_TRUE(read) << value.toStdString();
        EXPECT_EQ(read->nodeAttribute(read->findNode(u"a"_s), u"k"_s), value);
    }
}

TEST(DotWriter, a_graph_reads_back_with_its_structure)
{
    DotGraph graph;
    DotSubgraph *s = graph.createSubgraph(graph.root(), u"s"_s);
    DotNode *a = graph.createNode(s, {}, u"a"_s);
    DotNode *b = graph.createNode(graph.root(), u"B"_s, u"b"_s);
    graph.createEdge(a, b, u"e"_s);
    const QString text = written(graph);
    const std::unique_ptr<DotGraph> read = parseDot(text.toUtf8());
    ASSERT_TRUE(read);
    EXPECT_EQ(written(*read), text);
}

TEST(DotWriter, plain_labels_lose_their_html)
{
    EXPECT_EQ(plainLabelText(u"a<br>b&amp;c"_s), u"a\\nb&c"_s);
    EXPECT_EQ(plainLabelText(u"<b>x</b><font color=\"red\">y</font>"_s), u"xy"_s);
    EXPECT_EQ(plainLabelText(u"&lt;&gt;&quot;\\l"_s), u"<>\"\\n"_s);
    EXPECT_EQ(plainLabelText(u"&amp;lt;"_s), u"<"_s); // one after the other, from the left
    EXPECT_EQ(plainLabelText(u"a<BR>b&AMP;c"_s), u"ab&AMP;c"_s); // case counts
    EXPECT_EQ(plainLabelText(u"a<br/>b"_s), u"ab"_s);
}

TEST(DotWriter, plain_labels_are_escaped_behind_the_reduction)
{
    EXPECT_EQ(statement(0, u"n"_s, {{u"k"_s, u"a<br>b&quot;"_s}}, false, true),
              u"n [k=\"a\\nb\\\"\"];\n"_s);
}

TEST(DotWriter, the_switch_for_plain_labels_reaches_all_subgraphs)
{
    DotGraph graph;
    DotSubgraph *outer = graph.createSubgraph(graph.root(), u"o"_s);
    DotSubgraph *inner = graph.createSubgraph(outer, u"i"_s);
    graph.createNode(inner, u"<b>x</b>"_s, u"n"_s);
    EXPECT_TRUE(written(graph, true).contains(u"n [label=\"x\"]"_s));
    EXPECT_TRUE(inner->plainLabels);
    EXPECT_TRUE(written(graph, false).contains(u"n [label=\"<b>x</b>\"]"_s));
    EXPECT_FALSE(inner->plainLabels);
}

TEST(DotWriter, a_hundred_thousand_levels_are_neither_too_deep_nor_too_wide)
{
    DotGraph graph;
    DotSubgraph *subgraph = graph.root();
    constexpr int levels = 100000;
    for (int i = 0; i < levels; ++i)
        subgraph = graph.createSubgraph(subgraph, {});
    const QString text = written(graph);
    EXPECT_EQ(text.count(u"subgraph"_s), levels);
    EXPECT_LT(text.size(), 100'000'000);
    EXPECT_TRUE(parseDot(text.toUtf8()));
}
