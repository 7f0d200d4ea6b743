#include "attributes/attribute_readers.h"

#include "graph/dot_parser.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <memory>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

using enum AttributeElement;
using enum AttributeLookup;

constexpr AttributeWord sides[] = {{"top", "above"}, {"left", "beside"}};

constexpr TextAttribute<Cluster, Node, Edge> label{"label"_attribute, Inherited, "", "a text"};
constexpr TextAttribute<Cluster, Node, Edge> ownLabel{"label"_attribute, Own, "", "a text"};
constexpr NumberAttribute<Node> area{"area"_attribute, Inherited, "", "0", "a number"};
constexpr NumberAttribute<Edge> level{"level"_attribute, Inherited, "", "0", "a number"};
constexpr NumberAttribute<Root> pageWidth{"width"_attribute, Own, "", "0", "a number"};
constexpr IntegerAttribute<Node> row{"row"_attribute, Inherited, "", "0", "an integer"};
constexpr InchesAttribute<Node> width{"width"_attribute, Inherited, "0", "a size"};
constexpr NumberPairAttribute<Root, Cluster> margin{"margin"_attribute, Inherited, "points", "5",
                                                    "two numbers"};
constexpr InchPairAttribute<Node> pad{"pad"_attribute, Inherited, "0", "two sizes"};
constexpr InchPairAttribute<Root, Cluster> inset{"margin"_attribute, Inherited, "0", "two sizes"};
constexpr InchesAttribute<Edge> segment{"headsegment"_attribute, Inherited, "0", "a size"};
constexpr InchesAttribute<Node, Edge> gap{"nodesep"_attribute, Inherited, "0", "a size"};
constexpr ColorAttribute<Node> color{"color"_attribute, Inherited, "black", "a colour"};
constexpr ChoiceAttribute<Root, Cluster> legend{"legend"_attribute, Own, "right", "a side", sides};
constexpr WordsAttribute<Node> style{"style"_attribute, Inherited, "solid", "words", sides};

// Whether a row can be read of an object.
template <typename Row, typename Object>
concept ReadableOf = requires(const Row &attribute, const DotGraph *graph, const Object *object)
{
    attribute.find(graph, object);
};

template <typename Row>
concept HasDefault = requires(const Row &attribute, const DotGraph *graph,
                              const DotSubgraph *subgraph)
{
    attribute.defaultOf(graph, subgraph);
};

// What a table does not name can't be read: an engine that tries does not compile.
static_assert(ReadableOf<decltype(area), DotNode>);
static_assert(!ReadableOf<decltype(area), DotEdge>);
static_assert(!ReadableOf<decltype(area), DotSubgraph>);
static_assert(ReadableOf<decltype(level), DotEdge>);
static_assert(!ReadableOf<decltype(level), DotNode>);
static_assert(ReadableOf<decltype(margin), DotSubgraph>);
static_assert(!ReadableOf<decltype(margin), DotNode>);
static_assert(ReadableOf<decltype(label), DotSubgraph>);
static_assert(ReadableOf<decltype(label), DotNode>);
static_assert(ReadableOf<decltype(label), DotEdge>);
// Only nodes and edges have defaults of their kind.
static_assert(HasDefault<decltype(width)>);
static_assert(HasDefault<decltype(pad)>);
static_assert(HasDefault<decltype(segment)>);
static_assert(!HasDefault<decltype(inset)>);
static_assert(!HasDefault<decltype(gap)>);

// A graph with the objects that the tests read: the subgraphs `outer` and, in it, `inner`; the
// nodes `a` and `b` in `inner`; an edge from `a` to `b`.
struct Sample
{
    explicit Sample(const QByteArray &inRoot, const QByteArray &inOuter = {},
                    const QByteArray &inInner = {}, const QByteArray &ofNode = {},
                    const QByteArray &ofEdge = {})
        : graph(parseDot("digraph { " + inRoot + " subgraph outer { " + inOuter
                         + " subgraph inner { " + inInner + " a [" + ofNode + "]; b; } } a -> b ["
                         + ofEdge + "]; }"))
    {
    }

    DotSubgraph *root() const { return graph->root(); }
    DotSubgraph *outer() const { return graph->findSubgraph(u"outer"_s); }
    DotSubgraph *inner() const { return graph->findSubgraph(u"inner"_s); }
    DotNode *node() const { return graph->findNode(u"a"_s); }
    DotEdge *edge() const { return inner()->edges.constFirst(); }

    std::unique_ptr<DotGraph> graph;
};

Sample withNode(const QByteArray &attributes)
{
    return Sample({}, {}, {}, attributes);
}

} // namespace

// The lookups.

TEST(AttributeLookup, own_sees_nothing_but_the_object)
{
    const Sample sample(R"(graph [label="g"]; node [label="n"]; edge [label="e"];)");
    EXPECT_FALSE(ownLabel.isGiven(sample.graph.get(), sample.inner()));
    EXPECT_FALSE(ownLabel.isGiven(sample.graph.get(), sample.node()));
    EXPECT_FALSE(ownLabel.isGiven(sample.graph.get(), sample.edge()));
    const Sample own({}, {}, R"(graph [label="s"];)", R"(label="n")", R"(label="e")");
    EXPECT_EQ(ownLabel.of(own.graph.get(), own.inner()), u"s"_s);
    EXPECT_EQ(ownLabel.of(own.graph.get(), own.node()), u"n"_s);
    EXPECT_EQ(ownLabel.of(own.graph.get(), own.edge()), u"e"_s);
}

TEST(AttributeLookup, inherited_climbs_from_a_subgraph_to_those_around_it)
{
    const Sample outside(R"(graph [margin="1"];)");
    EXPECT_EQ(margin.of(outside.graph.get(), outside.inner()).first, 1.0);
    const Sample between(R"(graph [margin="1"];)", R"(graph [margin="2"];)");
    EXPECT_EQ(margin.of(between.graph.get(), between.inner()).first, 2.0);
    const Sample own(R"(graph [margin="1"];)", R"(graph [margin="2"];)", R"(graph [margin="3"];)");
    EXPECT_EQ(margin.of(own.graph.get(), own.inner()).first, 3.0);
    EXPECT_EQ(margin.of(own.graph.get(), own.root()).first, 1.0);
}

TEST(AttributeLookup, inherited_takes_the_default_of_its_kind_for_a_node_and_an_edge)
{
    const Sample sample(R"(graph [label="g"]; node [label="n"]; edge [label="e"];)");
    EXPECT_EQ(label.of(sample.graph.get(), sample.node()), u"n"_s);
    EXPECT_EQ(label.of(sample.graph.get(), sample.edge()), u"e"_s);
    const Sample nearer(R"(node [area="1"]; edge [level="1"];)",
                        R"(node [area="2"]; edge [level="2"];)");
    EXPECT_EQ(area.of(nearer.graph.get(), nearer.node()), 2.0);
    EXPECT_EQ(level.of(nearer.graph.get(), nearer.edge()), 2.0);
    const Sample own(R"(node [area="1"];)", {}, {}, R"(area="7")");
    EXPECT_EQ(area.of(own.graph.get(), own.node()), 7.0);
}

TEST(AttributeLookup, gives_the_default_of_a_kind_that_a_subgraph_has)
{
    const Sample sample(R"(node [width="1"]; edge [headsegment="4"];)",
                        R"(node [width="2" pad="1,3"];)");
    EXPECT_EQ(width.defaultOf(sample.graph.get(), sample.root()), 72.0);
    EXPECT_EQ(width.defaultOf(sample.graph.get(), sample.inner()), 144.0);
    EXPECT_EQ(segment.defaultOf(sample.graph.get(), sample.inner()), 288.0);
    EXPECT_EQ(pad.defaultOf(sample.graph.get(), sample.inner()).last, 216.0);
    EXPECT_EQ(pad.defaultOf(sample.graph.get(), sample.root()).last, 0.0);
}

TEST(AttributeLookup, tells_an_empty_text_from_none)
{
    const Sample empty = withNode(R"(color="")");
    EXPECT_TRUE(color.isGiven(empty.graph.get(), empty.node()));
    EXPECT_FALSE(color.text(empty.graph.get(), empty.node()).isNull());
    // It is a value like any other and ends the search.
    const Sample ending(R"(node [area="5"];)", {}, {}, R"(area="")");
    EXPECT_EQ(area.of(ending.graph.get(), ending.node()), 0.0);
    const Sample none = withNode({});
    EXPECT_FALSE(area.isGiven(none.graph.get(), none.node()));
    EXPECT_TRUE(area.text(none.graph.get(), none.node()).isNull());
    EXPECT_EQ(area.find(none.graph.get(), none.node()), nullptr);
}

// The elements of an object, where its type does not tell.

TEST(AttributeElements, tell_the_graph_from_the_subgraphs_in_it)
{
    const Sample sample({});
    EXPECT_TRUE(isElementOf(Root, sample.root()));
    EXPECT_FALSE(isElementOf(Cluster | Node, sample.root()));
    EXPECT_TRUE(isElementOf(Cluster, sample.inner()));
    EXPECT_FALSE(isElementOf(Root | Edge, sample.inner()));
    EXPECT_TRUE(isElementOf(Root | Node, sample.node()));
    EXPECT_FALSE(isElementOf(Root | Node, sample.edge()));
}

#ifndef QT_NO_DEBUG
TEST(AttributeElementsDeathTest, a_row_of_the_graph_is_read_of_no_subgraph)
{
    const Sample sample({});
    EXPECT_EQ(pageWidth.of(sample.graph.get(), sample.root()), 0.0);
    EXPECT_DEATH((void)pageWidth.of(sample.graph.get(), sample.inner()), "isElementOf");
    EXPECT_EQ(label.of(sample.graph.get(), sample.inner()), QString());
    EXPECT_DEATH((void)label.of(sample.graph.get(), sample.root()), "isElementOf");
}
#endif

// The types.

TEST(AttributeTypes, a_number_is_zero_where_it_does_not_parse)
{
    const auto read = [](const QByteArray &text) {
        const Sample sample = withNode("area=\"" + text + "\"");
        return area.of(sample.graph.get(), sample.node());
    };
    EXPECT_EQ(read("2.5"), 2.5);
    EXPECT_EQ(read("-3e2"), -300.0);
    EXPECT_EQ(read("many"), 0.0);
    const Sample none = withNode({});
    EXPECT_EQ(area.of(none.graph.get(), none.node()), 0.0);
}

TEST(AttributeTypes, an_integer_with_a_fraction_is_none)
{
    const auto read = [](const QByteArray &text) {
        const Sample sample = withNode("row=\"" + text + "\"");
        return row.of(sample.graph.get(), sample.node());
    };
    EXPECT_EQ(read("-12"), -12);
    EXPECT_EQ(read("1.5"), 0);
    EXPECT_EQ(read("99999999999"), 0);
    const Sample none = withNode({});
    EXPECT_EQ(row.of(none.graph.get(), none.node()), 0);
    EXPECT_EQ(row.given(none.graph.get(), none.node()), std::nullopt);
    const Sample fraction = withNode(R"(row="1.5")");
    EXPECT_EQ(row.given(fraction.graph.get(), fraction.node()), std::nullopt);
    const Sample zero = withNode(R"(row="0")");
    EXPECT_EQ(row.given(zero.graph.get(), zero.node()), 0);
}

TEST(AttributeTypes, a_size_in_inches_is_read_in_points)
{
    const Sample sample = withNode(R"(width="1.5")");
    EXPECT_EQ(width.of(sample.graph.get(), sample.node()), 108.0);
    const Sample none = withNode({});
    EXPECT_EQ(width.of(none.graph.get(), none.node()), 0.0);
}

TEST(AttributeTypes, a_pair_is_the_two_ends_of_a_list)
{
    const Sample two(R"(graph [margin="4,9,7"];)");
    EXPECT_EQ(margin.of(two.graph.get(), two.root()).first, 4.0);
    EXPECT_EQ(margin.of(two.graph.get(), two.root()).last, 7.0);
    const Sample one(R"(graph [margin="4"];)");
    EXPECT_EQ(margin.of(one.graph.get(), one.root()).last, 4.0);
    const Sample none({});
    EXPECT_EQ(margin.of(none.graph.get(), none.root()).first, 0.0);
}

TEST(AttributeTypes, a_pair_of_sizes_is_read_in_points)
{
    const Sample sample = withNode(R"(pad="1,0.5")");
    EXPECT_EQ(pad.of(sample.graph.get(), sample.node()).first, 72.0);
    EXPECT_EQ(pad.of(sample.graph.get(), sample.node()).last, 36.0);
}

TEST(AttributeTypes, a_colour_is_the_text_that_it_is_made_of)
{
    const Sample sample = withNode(R"(color="red;#00FF00")");
    EXPECT_EQ(color.of(sample.graph.get(), sample.node()), u"red;#00FF00"_s);
}

TEST(AttributeTypes, a_choice_is_the_number_of_the_very_word)
{
    const auto read = [](const QByteArray &text) {
        const Sample sample("graph [legend=\"" + text + "\"];");
        return legend.of(sample.graph.get(), sample.root());
    };
    EXPECT_EQ(read("top"), 0);
    EXPECT_EQ(read("left"), 1);
    EXPECT_EQ(read("Left"), -1);
    EXPECT_EQ(read(" left"), -1);
    EXPECT_EQ(read(""), -1);
    const Sample none({});
    EXPECT_EQ(legend.of(none.graph.get(), none.root()), -1);
}

TEST(AttributeTypes, words_are_held_in_whatever_surroundings)
{
    const auto holds = [](const QByteArray &attributes, int word) {
        const Sample sample = withNode(attributes);
        return style.holds(sample.graph.get(), sample.node(), word);
    };
    EXPECT_TRUE(holds(R"(style="stopped,topmost")", 0));
    EXPECT_FALSE(holds(R"(style="stopped,topmost")", 1));
    EXPECT_FALSE(holds(R"(style="Top")", 0));
    EXPECT_FALSE(holds({}, 0));
}
