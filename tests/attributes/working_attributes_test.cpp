#include "attributes/working_attributes.h"

#include "support/golden.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

using enum AttributeElement;

constexpr WorkingAttribute<Root, Cluster, Node> x{"x"_attribute, "points", "a place"};

template <typename Row, typename Object>
concept WritableOf = requires(const Row &attribute, DotGraph *graph, Object *object)
{
    attribute.setNumber(graph, object, 0.0);
};

static_assert(WritableOf<decltype(x), DotNode>);
static_assert(WritableOf<decltype(x), DotSubgraph>);
static_assert(!WritableOf<decltype(x), DotEdge>);

// A subgraph in the root, and a node in it.
struct Nested
{
    DotGraph graph;
    DotSubgraph *subgraph = graph.createSubgraph(graph.root(), u"s"_s);
    DotNode *node = graph.createNode(subgraph, {}, u"a"_s);
};

} // namespace

TEST(WorkingAttribute, is_handed_on_with_six_significant_digits)
{
    Nested nested;
    x.setNumber(&nested.graph, nested.node, 123.4567891);
    EXPECT_EQ(*x.find(nested.node), u"123.457"_s);
    EXPECT_EQ(x.number(nested.node), 123.457);
    x.setNumber(&nested.graph, nested.node, 1234567.0);
    EXPECT_EQ(x.number(nested.node), 1234570.0);
}

TEST(WorkingAttribute, as_an_integer_keeps_all_digits_and_saturates)
{
    Nested nested;
    x.setInteger(&nested.graph, nested.node, 1234567);
    EXPECT_EQ(x.integer(nested.node), 1234567);
    x.setInteger(&nested.graph, nested.node, qint64(1) << 40);
    EXPECT_EQ(x.integer(nested.node), std::numeric_limits<int>::max());
}

TEST(WorkingAttribute, is_read_where_it_was_written)
{
    Nested nested;
    x.setNumber(&nested.graph, nested.graph.root(), 7.0);
    EXPECT_EQ(x.find(nested.subgraph), nullptr);
    EXPECT_EQ(x.number(nested.subgraph), 0.0);
    EXPECT_EQ(x.integer(nested.subgraph), 0);
}

TEST(WorkingAttribute, is_looked_for_further_out_only_where_that_is_asked)
{
    Nested nested;
    x.setInteger(&nested.graph, nested.graph.root(), 7);
    EXPECT_EQ(x.inheritedNumber(&nested.graph, nested.subgraph), 7.0);
    EXPECT_EQ(x.inheritedInteger(&nested.graph, nested.subgraph), 7);
    // What a node inherits is the default of its kind.
    EXPECT_EQ(x.inheritedNumber(&nested.graph, nested.node), 0.0);
    nested.graph.declareAttribute(nested.graph.root(), u"x"_s, u"3"_s, u"node"_s);
    EXPECT_EQ(x.inheritedInteger(&nested.graph, nested.node), 3);
}

TEST(WorkingAttribute, of_a_subgraph_may_be_the_default_of_its_nodes)
{
    Nested nested;
    x.setNumber(&nested.graph, nested.graph.root(), 7.0);
    EXPECT_EQ(x.numberOrNodeDefault(&nested.graph, nested.subgraph), 0.0);
    nested.graph.declareAttribute(nested.graph.root(), u"x"_s, u"3"_s, u"node"_s);
    EXPECT_EQ(x.numberOrNodeDefault(&nested.graph, nested.subgraph), 3.0);
    x.setNumber(&nested.graph, nested.subgraph, 5.0);
    EXPECT_EQ(x.numberOrNodeDefault(&nested.graph, nested.subgraph), 5.0);
}

TEST(WorkingAttribute, takes_a_text_as_it_stands)
{
    Nested nested;
    x.setText(&nested.graph, nested.graph.root(), u"12.50"_s);
    EXPECT_EQ(*x.find(nested.graph.root()), u"12.50"_s);
    EXPECT_EQ(x.number(nested.graph.root()), 12.5);
}
