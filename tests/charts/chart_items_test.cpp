#include "layout/charts/chart_items.h"

#include "chart_fixture.h"

#include <algorithm>
#include <limits>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

QString idOf(const ChartItem &item)
{
    return item.node ? item.node->id : item.subgraph->id;
}

QStringList idsOf(const QList<ChartItem> &items)
{
    QStringList ids;
    for (const ChartItem &item : items)
        ids += idOf(item);
    return ids;
}

// The root's items by area, after the areas were summed up.
QStringList itemsByArea(const QByteArray &dot, bool ascending)
{
    const auto graph = graphOf(dot);
    sumArea(graph.get(), graph->root());
    return idsOf(chartItems(graph.get(), graph->root(), ascending));
}

QStringList itemsById(const QByteArray &dot)
{
    const auto graph = graphOf(dot);
    QList<ChartItem> items = chartItems(graph.get(), graph->root(), true);
    std::sort(items.begin(), items.end(), chartItemLess);
    QList<ChartItem> again = chartItems(graph.get(), graph->root(), false);
    sortByIdNumber(again);
    EXPECT_EQ(idsOf(again), idsOf(items));
    return idsOf(items);
}

} // namespace

TEST(SumArea, writes_the_total_of_all_nodes_below_on_each_subgraph)
{
    const auto graph = graphOf("digraph { a [area=1] subgraph s { b [area=2.5] "
                               "subgraph t { c [area=4] d [area=nonsense] } } e [] }");
    EXPECT_EQ(sumArea(graph.get(), graph->root()), 7.5);
    EXPECT_EQ(graph->root()->attributes.value(u"area"_s), "7.5");
    EXPECT_EQ(graph->findSubgraph(u"s"_s)->attributes.value(u"area"_s), "6.5");
    EXPECT_EQ(graph->findSubgraph(u"t"_s)->attributes.value(u"area"_s), "4");
}

TEST(SumArea, stores_six_digits_and_returns_all_of_them)
{
    const auto graph = graphOf("digraph { subgraph s { a [area=1234567] } b [area=1] }");
    EXPECT_EQ(sumArea(graph.get(), graph->root()), 1234568.0);
    EXPECT_EQ(graph->findSubgraph(u"s"_s)->attributes.value(u"area"_s), "1.23457e+06");
    EXPECT_EQ(graph->root()->attributes.value(u"area"_s), "1.23457e+06");
}

TEST(SumArea, replaces_an_area_of_the_subgraph_itself)
{
    const auto graph = graphOf("digraph { subgraph s { graph [area=99] a [area=2] } }");
    EXPECT_EQ(sumArea(graph.get(), graph->root()), 2.0);
    EXPECT_EQ(graph->findSubgraph(u"s"_s)->attributes.value(u"area"_s), "2");
}

TEST(SumArea, reads_areas_that_nodes_inherit)
{
    const auto graph = graphOf("digraph { node [area=3] a [] subgraph s { b [] c [area=1] } }");
    EXPECT_EQ(sumArea(graph.get(), graph->root()), 7.0);
}

TEST(SumArea, of_a_child_counts_only_what_is_below_it)
{
    const auto graph = graphOf("digraph { a [area=1] subgraph s { b [area=2] } }");
    EXPECT_EQ(sumArea(graph.get(), graph->findSubgraph(u"s"_s)), 2.0);
    EXPECT_FALSE(graph->root()->attributes.contains(u"area"_s));
}

TEST(SumArea, reaches_the_bottom_of_deep_nesting)
{
    const int depth = 100'000;
    const auto graph = graphOf("digraph {" + QByteArray("subgraph {").repeated(depth) + "a [area=5]"
                               + QByteArray("}").repeated(depth + 1));
    EXPECT_EQ(sumArea(graph.get(), graph->root()), 5.0);
}

TEST(ChartItems, fall_or_rise_by_area)
{
    const QByteArray dot = "digraph { a [area=1] subgraph s { b [area=2] } c [area=3] }";
    EXPECT_EQ(itemsByArea(dot, true), QStringList({u"a"_s, u"s"_s, u"c"_s}));
    EXPECT_EQ(itemsByArea(dot, false), QStringList({u"c"_s, u"s"_s, u"a"_s}));
}

TEST(ChartItems, of_equal_area_keep_their_order_with_subgraphs_before_nodes)
{
    const QByteArray dot = "digraph { a [area=1] c [area=1] subgraph s { x [area=1] } b [area=1] }";
    EXPECT_EQ(itemsByArea(dot, true), QStringList({u"s"_s, u"a"_s, u"c"_s, u"b"_s}));
    EXPECT_EQ(itemsByArea(dot, false), QStringList({u"s"_s, u"a"_s, u"c"_s, u"b"_s}));
}

TEST(ChartItems, take_what_is_not_a_number_for_the_smallest)
{
    const QByteArray dot = "digraph { a [area=nan] b [area=\"-inf\"] c [area=nan] d [area=inf] }";
    EXPECT_EQ(itemsByArea(dot, true), QStringList({u"a"_s, u"c"_s, u"b"_s, u"d"_s}));
    EXPECT_EQ(itemsByArea(dot, false), QStringList({u"d"_s, u"b"_s, u"a"_s, u"c"_s}));
}

TEST(ChartItems, carry_the_area_of_their_element)
{
    const auto graph = graphOf("digraph { subgraph s { graph [area=2] } a [area=1.5] b [] }");
    const QList<ChartItem> items = chartItems(graph.get(), graph->root(), false);
    ASSERT_EQ(items.size(), 3);
    EXPECT_EQ(items.at(0).subgraph->id, "s");
    EXPECT_EQ(items.at(0).node, nullptr);
    EXPECT_EQ(items.at(0).area, 2.0);
    EXPECT_EQ(items.at(1).node->id, "a");
    EXPECT_EQ(items.at(1).subgraph, nullptr);
    EXPECT_EQ(items.at(1).area, 1.5);
    EXPECT_EQ(items.at(2).area, 0.0);
}

TEST(ChartItemLess, orders_by_the_number_of_an_automatic_id)
{
    EXPECT_EQ(
        itemsById("digraph { __N10 [] subgraph cluster_9 {} __N2 [] subgraph cluster_11 {} }"),
        QStringList({u"__N2"_s, u"cluster_9"_s, u"__N10"_s, u"cluster_11"_s}));
}

TEST(ChartItemLess, gives_every_other_id_the_number_zero)
{
    // "cluster_5" is the id of a node here, "__N3" that of a subgraph, and "__Nx" has no number.
    EXPECT_EQ(itemsById("digraph { __N1 [] cluster_5 [] subgraph __N3 {} __Nx [] subgraph b {} }"),
              QStringList({u"__N3"_s, u"__Nx"_s, u"b"_s, u"cluster_5"_s, u"__N1"_s}));
}

TEST(ChartItemLess, compares_ids_of_equal_numbers_by_case)
{
    EXPECT_EQ(itemsById("digraph { b [] B [] a [] subgraph A {} }"),
              QStringList({u"A"_s, u"B"_s, u"a"_s, u"b"_s}));
}

TEST(ChartItemLess, puts_negative_numbers_first)
{
    EXPECT_EQ(itemsById("digraph { a [] \"__N-4\" [] }"), QStringList({u"__N-4"_s, u"a"_s}));
}

TEST(ColorInterpolate, goes_from_one_colour_to_the_other)
{
    const ColorValue a(u"#000a64"_s);
    const ColorValue b(u"#ff0a00"_s);
    EXPECT_EQ(colorInterpolate(a, b, 0.0).toString(), "#000a64");
    EXPECT_EQ(colorInterpolate(a, b, 1.0).toString(), "#ff0a00");
}

TEST(ColorInterpolate, truncates_each_channel)
{
    const ColorValue between =
        colorInterpolate(ColorValue(u"#000a64"_s), ColorValue(u"#ff0a00"_s), 0.5);
    EXPECT_EQ(between.red(), 127); // 127.5
    EXPECT_EQ(between.green(), 10);
    EXPECT_EQ(between.blue(), 50);
    EXPECT_EQ(between.name(), "#7f0a32");
}

TEST(ColorInterpolate, is_opaque_whatever_the_two_are)
{
    const ColorValue between =
        colorInterpolate(ColorValue(u"#00000000"_s), ColorValue(u"#ffffff80"_s), 0.5);
    EXPECT_TRUE(between.isValid());
    EXPECT_EQ(between.alpha(), 255);
}

TEST(ColorInterpolate, is_invalid_if_either_colour_is)
{
    const ColorValue good(u"red"_s);
    const ColorValue bad(u"no colour"_s);
    for (const ColorValue &value :
         {colorInterpolate(good, bad, 0.5), colorInterpolate(bad, good, 0.5)}) {
        EXPECT_FALSE(value.isValid());
        EXPECT_EQ(value.alpha(), 255);
    }
}
