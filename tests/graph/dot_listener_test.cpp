#include "graph/dot_listener.h"

#include "graph/dot_parser.h"

#include <gtest/gtest.h>

#include <new>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QString at(qsizetype place)
{
    return u'@' + QString::number(place);
}

// Writes down what it hears, a line each.
class Recorder : public DotListener
{
public:
    void subgraphOpened(DotSubgraph *subgraph, qsizetype keyword, qsizetype id) override
    {
        heard += u"open "_s + subgraph->id + at(keyword) + at(id);
    }
    void subgraphClosed(DotSubgraph *subgraph, qsizetype brace) override
    {
        heard += u"close "_s + subgraph->id + at(brace);
    }
    void nodeMentioned(DotNode *node, NodeMention mention, bool first, qsizetype place) override
    {
        const char *const mentions[] = {"node ", "tail ", "head "};
        heard += mentions[int(mention)] + node->id + at(place) + (first ? u" first"_s : QString());
    }
    void edgeRead(DotEdge *edge, qsizetype tail, qsizetype head) override
    {
        heard += u"edge "_s + edge->tail->id + at(tail) + u' ' + edge->head->id + at(head);
    }
    void keywordRead(AttributeTarget target, DotSubgraph *subgraph, qsizetype place) override
    {
        heard += targetName(target) + u" of "_s + subgraph->id + at(place);
    }
    void attributeRead(const AttributeMention &a) override
    {
        EXPECT_EQ(int(a.node != nullptr) + int(a.edge != nullptr) + int(a.subgraph != nullptr), 1);
        const QString id = a.node ? a.node->id
            : a.edge              ? a.edge->tail->id + u"->"_s + a.edge->head->id
                                  : a.subgraph->id;
        heard += targetName(a.target) + u' ' + id + u": "_s + a.name.text() + at(a.nameOffset)
            + u'=' + a.value + at(a.valueOffset) + (a.replaces ? u" again"_s : QString());
    }

    QStringList heard;

private:
    static QString targetName(AttributeTarget target)
    {
        const char *const names[] = {"node", "edge", "graph", "nodes", "edges"};
        return QString::fromLatin1(names[int(target)]);
    }
};

QStringList heardOf(const QByteArray &text)
{
    Recorder recorder;
    (void)parseDot(text, recorder);
    return recorder.heard;
}

// What was heard within the braces of `digraph {` and `}`.
QStringList heardWithin(const QByteArray &body)
{
    const QStringList heard = heardOf("digraph {" + body + "}");
    return heard.sliced(1, heard.size() - 2);
}

DotFault faultOf(const QByteArray &text)
{
    DotListener nobody;
    const DotReading reading = parseDot(text, nobody);
    EXPECT_FALSE(reading.graph) << text.constData();
    return reading.fault.value_or(DotFault{});
}

using Cause = DotFault::Cause;
using enum DotToken;

} // namespace

TEST(DotListener, hears_the_root_and_its_end)
{
    EXPECT_EQ(heardOf(" digraph {}"), (QStringList{u"open name@1@-1"_s, u"close name@10"_s}));
    EXPECT_EQ(heardOf("digraph \"g\" { } "), (QStringList{u"open name@0@8"_s, u"close name@14"_s}));
}

TEST(DotListener, hears_subgraphs_where_they_open_and_close)
{
    EXPECT_EQ(heardOf("digraph { subgraph \"s\" { subgraph {} }; }"),
              (QStringList{u"open name@0@-1"_s, u"open s@10@19"_s, u"open __G1@25@-1"_s,
                           u"close __G1@35"_s, u"close s@37"_s, u"close name@40"_s}));
}

TEST(DotListener, hears_each_mention_of_a_node)
{
    EXPECT_EQ(heardWithin("a a->b a ->\"b\";"),
              (QStringList{u"node a@9 first"_s, u"node a->b@11 first"_s, u"tail a@16"_s,
                           u"head b@20 first"_s, u"edge a@16 b@20"_s}));
}

TEST(DotListener, hears_attributes_with_what_they_are_given_to)
{
    EXPECT_EQ(heardWithin("graph [x=1] node [y=\"2\"]; edge [] a -> a [z = 3] a [v=\"\", w=\"\"]"),
              (QStringList{u"graph of name@9"_s, u"graph name: x@16=1@18"_s, u"nodes of name@21"_s,
                           u"nodes name: y@27=2@29"_s, u"edges of name@35"_s, u"tail a@43 first"_s,
                           u"head a@48"_s, u"edge a@43 a@48"_s, u"edge a->a: z@51=3@55"_s,
                           u"node a@58"_s, u"node a: v@61=@63"_s, u"node a: w@67=@69"_s}));
}

TEST(DotListener, hears_that_a_value_is_replaced)
{
    EXPECT_EQ(heardWithin("a [x=1 x=2] a [x=3]").filter(u"again"_s),
              (QStringList{u"node a: x@16=2@18 again"_s, u"node a: x@24=3@26 again"_s}));
    EXPECT_EQ(heardWithin("subgraph s { graph [x=1 x=2] }").filter(u"again"_s).size(), 1);
}

TEST(DotListener, what_a_graph_starts_with_is_not_replaced)
{
    EXPECT_EQ(heardWithin("graph [label=x] node [label=y] edge [label=z]").filter(u"again"_s),
              QStringList());
    EXPECT_EQ(
        heardWithin("graph [label=x label=x] node [label=x] node [label=x]").filter(u"again"_s),
        (QStringList{u"graph name: label@24=x@30 again"_s, u"nodes name: label@54=x@60 again"_s}));
}

TEST(DotListener, hears_what_stands_ahead_of_a_fault)
{
    EXPECT_EQ(heardOf("digraph { a -> b -> c }").last(), u"edge a@10 b@15"_s);
    EXPECT_EQ(heardOf("graph {"), QStringList());
}

TEST(DotListener, places_count_line_ends_once)
{
    EXPECT_EQ(heardOf("digraph {\r\n\r\na\r}"),
              (QStringList{u"open name@0@-1"_s, u"node a@11 first"_s, u"close name@13"_s}));
}

TEST(DotListener, the_graph_is_the_same_with_and_without)
{
    const QByteArray text(
        "digraph { graph [label=x] subgraph s { a [x=1 x=2] } a -> b [y=\"2\"] }");
    Recorder recorder;
    const DotReading reading = parseDot(text, recorder);
    ASSERT_TRUE(reading.graph);
    EXPECT_FALSE(reading.fault);
    const auto graph = parseDot(text);
    EXPECT_EQ(reading.graph->root()->attributes, graph->root()->attributes);
    EXPECT_EQ(reading.graph->findNode(u"a"_s)->attributes, graph->findNode(u"a"_s)->attributes);
    EXPECT_EQ(reading.graph->root()->edges.size(), 1);
}

TEST(DotFault, a_token_out_of_place_is_told_with_what_could_stand_there)
{
    const DotFault chain = faultOf("digraph { a -> b -> c }");
    EXPECT_EQ(chain.cause, Cause::UnexpectedToken);
    EXPECT_EQ(chain.offset, 17);
    EXPECT_EQ(chain.end, 19);
    EXPECT_EQ(chain.found, Arrow);
    EXPECT_EQ(chain.expected, (DotTokenSet{OpenBracket, Semicolon, Identifier, CloseBrace}));

    const DotFault list = faultOf("digraph { a [x=1; y=2] }");
    EXPECT_EQ(list.offset, 16);
    EXPECT_EQ(list.found, Semicolon);
    EXPECT_EQ(list.expected, (DotTokenSet{Comma, CloseBracket, Identifier}));

    const DotFault statement = faultOf("digraph { rankdir=LR }");
    EXPECT_EQ(statement.offset, 17);
    EXPECT_EQ(statement.expected,
              (DotTokenSet{Arrow, OpenBracket, Semicolon, Identifier, CloseBrace}));

    const DotFault name = faultOf("digraph a \"b\\\"\" {}");
    EXPECT_EQ(name.found, Identifier);
    EXPECT_EQ(name.text, "b\"");
    EXPECT_EQ(name.offset, 10);
    EXPECT_EQ(name.end, 15);
    EXPECT_EQ(name.expected, (DotTokenSet{OpenBrace}));

    EXPECT_EQ(faultOf("digraph {} }").expected, (DotTokenSet{End}));
    EXPECT_EQ(faultOf("{").expected, (DotTokenSet{Identifier}));
}

TEST(DotFault, another_first_word_than_digraph_is_told)
{
    const DotFault fault = faultOf("\n graph {}");
    EXPECT_EQ(fault.cause, Cause::NotDigraph);
    EXPECT_EQ(fault.offset, 2);
    EXPECT_EQ(fault.text, "graph");
}

TEST(DotFault, the_ways_in_which_a_text_ends_too_early_are_told_apart)
{
    const DotFault end = faultOf("digraph { a ");
    EXPECT_EQ(end.cause, Cause::EndOfText);
    EXPECT_EQ(end.offset, 12);
    EXPECT_EQ(faultOf("").cause, Cause::EndOfText);

    const DotFault open = faultOf("digraph { a [x=\"y] }");
    EXPECT_EQ(open.cause, Cause::UnterminatedText);
    EXPECT_EQ(open.offset, 15);
    EXPECT_EQ(open.end, 20);
    EXPECT_EQ(open.expected, (DotTokenSet{Identifier}));

    const DotFault nul = faultOf(QByteArray("digraph { a \0 }", 15));
    EXPECT_EQ(nul.cause, Cause::NulByte);
    EXPECT_EQ(nul.offset, 12);

    const DotFault within = faultOf(QByteArray("digraph { \"a\0\" }", 16));
    EXPECT_EQ(within.cause, Cause::UnterminatedText);
    EXPECT_EQ(within.offset, 10);
    EXPECT_EQ(within.end, 12);
}

TEST(DotFault, a_text_that_is_too_large_is_told)
{
    EXPECT_EQ(faultOf(QByteArray::fromRawData("", qsizetype(0x80000000))).cause, Cause::TooLong);

    struct Greedy : DotListener
    {
        void nodeMentioned(DotNode *, NodeMention, bool, qsizetype) override
        {
            throw std::bad_alloc();
        }
    } greedy;
    const DotReading reading = parseDot("digraph { a }", greedy);
    EXPECT_FALSE(reading.graph);
    ASSERT_TRUE(reading.fault);
    EXPECT_EQ(reading.fault->cause, Cause::OutOfMemory);
}
