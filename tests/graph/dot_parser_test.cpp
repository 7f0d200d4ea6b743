#include "graph/dot_parser.h"

#include "graph/limits.h"
#include "support/golden.h"

#include <cstring>

#include <sys/mman.h>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QStringList nodeIds(const DotSubgraph *subgraph)
{
    QStringList ids;
    for (const DotNode *node : subgraph->nodes)
        ids += node->id;
    return ids;
}

QStringList edgeNames(const DotSubgraph *subgraph)
{
    QStringList names;
    for (const DotEdge *edge : subgraph->edges)
        names += edge->tail->id + u"->"_s + edge->head->id;
    return names;
}

} // namespace

TEST(DotParser, an_empty_graph_has_only_the_defaults)
{
    for (const char *text : {"digraph {}", "digraph \"My graph\" { }", "\"digraph\" x {}",
                             "digraph {}\n\t ", "digraph {} \"open"}) {
        const auto graph = parseDot(text);
        ASSERT_TRUE(graph) << text;
        const DotGraph fresh;
        EXPECT_EQ(graph->root()->id, "name");
        EXPECT_EQ(graph->root()->attributes, fresh.root()->attributes);
        EXPECT_TRUE(graph->root()->nodes.isEmpty());
    }
}

TEST(DotParser, keeps_the_name_of_the_graph)
{
    const auto nameOf = [](const QByteArray &text) {
        const DotReading reading = readDot(text);
        EXPECT_NE(reading.graph, nullptr) << text.data();
        return reading.graph ? reading.graph->name() : QString();
    };
    EXPECT_EQ(nameOf("digraph calls { }"), u"calls"_s);
    EXPECT_EQ(nameOf("digraph \"two words\" { }"), u"two words"_s);
    EXPECT_EQ(nameOf("digraph { }"), u""_s);
}

TEST(DotParser, text_behind_a_nul_byte_does_not_count)
{
    EXPECT_TRUE(parseDot(QByteArray("digraph {}\0 rubbish", 19)));
    EXPECT_FALSE(parseDot(QByteArray("digraph {\0}", 11)));
}

TEST(DotParser, rejects_what_the_dialect_does_not_have)
{
    const QList<QByteArray> rejected{"",
                                     " \t\n",
                                     "Digraph {}",
                                     "graph {}",
                                     "strict digraph {}",
                                     "digraph",
                                     "digraph {",
                                     "digraph a b {}",
                                     "digraph {} x",
                                     "digraph {} }",
                                     "digraph { a -> b -> c }",
                                     "digraph { a -> { b c } }",
                                     "digraph { a -- b [x=y] ; -> }",
                                     "digraph { rankdir=LR; }",
                                     "digraph { a [x=y; z=w] }",
                                     "digraph { a [x=y] [z=w] }",
                                     "digraph { ; }",
                                     "digraph { a;; }",
                                     "digraph { a [bold] }",
                                     "digraph { a [x=] }",
                                     "digraph { a [x=y }",
                                     "digraph { a[label=x] }",
                                     "digraph { a [label=\"x] }",
                                     "digraph { subgraph s }",
                                     "digraph { subgraph s t {} }",
                                     "digraph { a -> }",
                                     "digraph { -> a }",
                                     "digraph { a [,] }",
                                     "digraph { a [x=y,,z=w] }",
                                     "digraph { { a } }",
                                     "digraph { a ->; b }",
                                     "digraph { [x=y] }"};
    for (const QByteArray &text : rejected)
        EXPECT_FALSE(parseDot(text)) << text.constData();
}

TEST(DotParser, statements_need_no_separator_and_take_one)
{
    const auto graph =
        parseDot("digraph { a b; \"c d\" [x=y]; subgraph s { e };a ->b;node [z=w];}");
    ASSERT_TRUE(graph);
    EXPECT_EQ(nodeIds(graph->root()), (QStringList{u"a"_s, u"b"_s, u"c d"_s}));
    EXPECT_EQ(edgeNames(graph->root()), QStringList{u"a->b"_s});
}

TEST(DotParser, a_name_takes_in_what_does_not_stop_it)
{
    // The arrow needs white space before it: `-` and `>` are part of a name.
    const auto graph = parseDot("digraph { a->b a ->b }");
    ASSERT_TRUE(graph);
    EXPECT_EQ(nodeIds(graph->root()), (QStringList{u"a->b"_s, u"a"_s, u"b"_s}));
    EXPECT_EQ(edgeNames(graph->root()), QStringList{u"a->b"_s});
}

TEST(DotParser, attribute_lists_take_commas_or_blanks_and_the_last_of_equal_names)
{
    const auto graph = parseDot("digraph { a [x=1 y=\"2\", z=3, x=4,] }");
    ASSERT_TRUE(graph);
    EXPECT_EQ(graph->findNode(u"a"_s)->attributes,
              (AttributeMap{{u"x"_s, u"4"_s}, {u"y"_s, u"2"_s}, {u"z"_s, u"3"_s}}));
}

TEST(DotParser, a_later_statement_adds_to_a_node)
{
    const auto graph = parseDot("digraph { a [x=1 y=2] a [y=3] a }");
    ASSERT_TRUE(graph);
    EXPECT_EQ(graph->findNode(u"a"_s)->attributes,
              (AttributeMap{{u"x"_s, u"1"_s}, {u"y"_s, u"3"_s}}));
    EXPECT_EQ(graph->root()->nodes.size(), 1);
}

TEST(DotParser, keywords_set_the_defaults_of_their_body_also_when_quoted)
{
    const auto graph = parseDot(
        "digraph { \"node\" [color=red] edge [color=blue] subgraph s { \"graph\" [label=in] } }");
    ASSERT_TRUE(graph);
    EXPECT_TRUE(graph->root()->nodes.isEmpty());
    EXPECT_EQ(graph->root()->nodeDefaults.value(u"color"_s), "red");
    EXPECT_EQ(graph->root()->edgeDefaults.value(u"color"_s), "blue");
    EXPECT_EQ(graph->findSubgraph(u"s"_s)->attributes, (AttributeMap{{u"label"_s, u"in"_s}}));
    EXPECT_TRUE(parseDot("digraph { node edge graph }")) << "an attribute list is optional";
}

TEST(DotParser, a_node_belongs_to_the_subgraph_of_its_first_mention)
{
    const auto graph =
        parseDot("digraph { subgraph s { a } a [color=red] subgraph t { a b -> c } }");
    ASSERT_TRUE(graph);
    EXPECT_TRUE(graph->root()->nodes.isEmpty());
    DotSubgraph *s = graph->findSubgraph(u"s"_s);
    EXPECT_EQ(nodeIds(s), QStringList{u"a"_s});
    EXPECT_EQ(graph->nodeAttribute(graph->findNode(u"a"_s), u"color"_s), "red");
    EXPECT_EQ(nodeIds(graph->findSubgraph(u"t"_s)), (QStringList{u"b"_s, u"c"_s}));
    EXPECT_EQ(edgeNames(graph->findSubgraph(u"t"_s)), QStringList{u"b->c"_s});
}

TEST(DotParser, node_defaults_reach_the_nodes_first_mentioned_there)
{
    const auto inside = parseDot("digraph { subgraph s { node [color=red]; a } }");
    EXPECT_EQ(inside->nodeAttribute(inside->findNode(u"a"_s), u"color"_s), "red");
    const auto outside = parseDot("digraph { a subgraph s { node [color=red]; a } }");
    EXPECT_EQ(outside->nodeAttribute(outside->findNode(u"a"_s), u"color"_s), "#000000");
}

TEST(DotParser, a_subgraph_named_twice_is_two_subgraphs)
{
    const auto graph = parseDot("digraph { subgraph s {a} subgraph s {b} subgraph {} }");
    ASSERT_TRUE(graph);
    ASSERT_EQ(graph->root()->subgraphs.size(), 3);
    EXPECT_EQ(graph->findSubgraph(u"s"_s), graph->root()->subgraphs.at(1));
    EXPECT_EQ(graph->root()->subgraphs.at(2)->id, "__G1");
}

TEST(DotParser, parallel_edges_stay_apart)
{
    const auto graph = parseDot("digraph { a -> b; a -> b [x=1] }");
    ASSERT_TRUE(graph);
    EXPECT_EQ(edgeNames(graph->root()), (QStringList{u"a->b"_s, u"a->b"_s}));
    EXPECT_TRUE(graph->root()->edges.at(0)->attributes.isEmpty());
    EXPECT_EQ(graph->root()->edges.at(1)->attributes, (AttributeMap{{u"x"_s, u"1"_s}}));
}

TEST(DotParser, texts_are_utf8_and_escapes_stay)
{
    const auto graph = parseDot("digraph { a [label=\"x\\\"y\\n\xc3\xa4\xf0\x9f\x8e\x88\"]; }");
    ASSERT_TRUE(graph);
    EXPECT_EQ(graph->findNode(u"a"_s)->attributes.value(u"label"_s), u"x\"y\\nä🎈"_s);
}

TEST(DotParser, invalid_utf8_becomes_replacement_characters)
{
    const auto graph = parseDot("digraph { a [label=\"\xff\"] }");
    ASSERT_TRUE(graph);
    EXPECT_EQ(graph->findNode(u"a"_s)->attributes.value(u"label"_s), u"\uFFFD"_s);
}

TEST(DotParser, a_minus_loses_the_character_behind_it)
{
    const auto graph = parseDot("digraph { -1 x [width=-1.5] y [width=\"-1.5\"] }");
    ASSERT_TRUE(graph);
    EXPECT_NE(graph->findNode(u"-"_s), nullptr);
    EXPECT_EQ(graph->findNode(u"x"_s)->attributes.value(u"width"_s), "-.5");
    EXPECT_EQ(graph->findNode(u"y"_s)->attributes.value(u"width"_s), "-1.5");
}

TEST(DotParser, a_carriage_return_and_line_feed_in_a_string_are_one_line_feed)
{
    const auto graph = parseDot("digraph { a [label=\"x\r\ny\"] }");
    ASSERT_TRUE(graph);
    EXPECT_EQ(graph->findNode(u"a"_s)->attributes.value(u"label"_s), "x\ny");
}

TEST(DotParser, an_empty_id_becomes_an_automatic_one)
{
    const auto graph = parseDot("digraph { \"\" subgraph \"\" { } a [label=\"\"] }");
    ASSERT_TRUE(graph);
    EXPECT_EQ(nodeIds(graph->root()), (QStringList{u"__N1"_s, u"a"_s}));
    EXPECT_EQ(graph->root()->subgraphs.at(0)->id, "__G2");
    EXPECT_TRUE(graph->findNode(u"a"_s)->attributes.contains(u"label"_s));
}

TEST(DotParser, nesting_has_no_limit)
{
    constexpr int depth = 200000;
    QByteArray text = "digraph {";
    for (int i = 0; i < depth; ++i)
        text += " subgraph {";
    text += " a";
    for (int i = 0; i < depth; ++i)
        text += '}';
    const auto graph = parseDot(text + '}');
    ASSERT_TRUE(graph);
    EXPECT_EQ(graph->findNode(u"a"_s)->owner->depth, depth);
    EXPECT_FALSE(parseDot(text));
}

TEST(DotParser, one_object_may_have_very_many_attributes)
{
    QByteArray text = "digraph { a [";
    for (int i = 0; i < 50000; ++i)
        text += "k" + QByteArray::number(i) + "=v ";
    const auto graph = parseDot(text + "] }");
    ASSERT_TRUE(graph);
    EXPECT_EQ(graph->findNode(u"a"_s)->attributes.size(), 50000);
}

// Null bytes that take no memory: the system has one page for all that nobody has written to.
TEST(DotParser, an_input_of_the_longest_length_is_read_and_a_longer_one_is_rejected)
{
    constexpr size_t size = size_t(Limits::longestInput) + 1;
    void *const room = ::mmap(nullptr, size, PROT_READ | PROT_WRITE,
                              MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    ASSERT_NE(room, MAP_FAILED);
    const char text[] = "digraph { a; }";
    std::memcpy(room, text, sizeof text);
    const auto *bytes = static_cast<const char *>(room);
    const auto graph = parseDot(QByteArray::fromRawData(bytes, Limits::longestInput));
    ASSERT_TRUE(graph);
    EXPECT_EQ(nodeIds(graph->root()), QStringList(u"a"_s));
    EXPECT_FALSE(parseDot(QByteArray::fromRawData(bytes, Limits::longestInput + 1)));
    ::munmap(room, size);
}
