#include "layout/charts/chart_legend.h"

#include "chart_fixture.h"
#include "graph/numbers.h"

#include <climits>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

// The labels of these tests, in Arial 12 with the fonts that the tests are pinned to, are all 18
// high; "a" is 9 wide, "bb" 18, "ccc" 24, "Kind" 32, "Wide title" 66. An entry is its label's width
// + 4 + 18 long: 31, 40 and 46.
namespace {

const QByteArray threeEntries = "a [label=a] b [label=bb] c [label=ccc]";

QString position(const DotObject *object)
{
    return object->attributes.value(u"x"_s) + u',' + object->attributes.value(u"y"_s);
}

// Where a legend was placed: title and entries as "x,y", "," for what has no place.
struct Placed
{
    QSize size;
    QRect rect;
    QString title;
    QStringList entries;
};

Placed placed(QRect rect, const QByteArray &side, const QByteArray &title,
              const QByteArray &entries = threeEntries)
{
    const auto graph = graphOf("digraph { subgraph key { graph [legend=\"" + side + "\" label=\""
                               + title + "\"] " + entries + " } }");
    RecordingDevice device;
    const GraphStyle style(graph.get(), &device);
    DotSubgraph *legend = findLegend(graph->root());
    Placed result;
    result.size = placeLegend(graph.get(), rect, legend, style);
    result.rect = rect;
    result.title = position(legend);
    for (const DotNode *node : std::as_const(legend->nodes))
        result.entries += position(node);
    return result;
}

QString legendOf(const QByteArray &dot)
{
    const auto graph = graphOf(dot);
    const DotSubgraph *legend = findLegend(graph->root());
    return legend ? legend->id : QString();
}

} // namespace

TEST(FindLegend, takes_the_first_depth_first)
{
    EXPECT_EQ(legendOf("digraph { subgraph a { subgraph b { graph [legend=top] } } "
                       "subgraph c { graph [legend=left] } }"),
              "b");
    EXPECT_EQ(
        legendOf("digraph { subgraph a { graph [legend=\"\"] subgraph b { graph [legend=x] } } }"),
        "a");
}

TEST(FindLegend, takes_the_root_before_all)
{
    EXPECT_EQ(legendOf("digraph { subgraph a { graph [legend=top] } graph [legend=top] }"), "name");
}

TEST(FindLegend, passes_over_what_only_nodes_and_edges_have)
{
    EXPECT_EQ(legendOf("digraph { subgraph a { node [legend=top] n [legend=top] } }"), QString());
    EXPECT_EQ(legendOf("digraph {}"), QString());
}

TEST(FindLegend, reaches_the_bottom_of_deep_nesting)
{
    const int depth = 100'000;
    EXPECT_EQ(legendOf("digraph {" + QByteArray("subgraph {").repeated(depth)
                       + "subgraph last { graph [legend=top] }"
                       + QByteArray("}").repeated(depth + 1)),
              "last");
}

TEST(PlaceLegend, without_a_legend_doubles_the_margin)
{
    DotGraph graph;
    RecordingDevice device;
    const GraphStyle style(&graph, &device);
    QRect rect(4, 5, 100, 80);
    EXPECT_EQ(placeLegend(&graph, rect, nullptr, style), QSize(108, 90));
    EXPECT_EQ(rect, QRect(4, 5, 100, 80));
    drawLegend(&device, &graph, style, nullptr);
    EXPECT_EQ(device.calls(), QStringList());
}

TEST(PlaceLegend, at_the_top_runs_across_and_pushes_the_chart_down)
{
    const Placed legend = placed({0, 0, 100, 80}, "top", "Kind");
    EXPECT_EQ(legend.title, "34,0"); // (100 - 32) / 2
    EXPECT_EQ(legend.entries, QStringList({u"2,22"_s, u"52,22"_s, u"2,44"_s})); // two of 50 fit
    EXPECT_EQ(legend.rect, QRect(0, 74, 100, 80)); // 44 + 18 + 12
    EXPECT_EQ(legend.size, QSize(100, 228)); // the room above the chart is kept below it too
}

TEST(PlaceLegend, at_the_bottom_runs_across_and_leaves_the_chart_where_it_is)
{
    const Placed legend = placed({0, 0, 100, 80}, "bottom", "Kind");
    EXPECT_EQ(legend.title, "34,92");
    EXPECT_EQ(legend.entries, QStringList({u"2,114"_s, u"52,114"_s, u"2,136"_s}));
    EXPECT_EQ(legend.rect, QRect(0, 0, 100, 80));
    EXPECT_EQ(legend.size, QSize(100, 154));
}

TEST(PlaceLegend, at_the_left_runs_down_and_pushes_the_chart_aside)
{
    const Placed legend = placed({0, 0, 100, 80}, "left", "Kind");
    EXPECT_EQ(legend.title, "29,0"); // (90 - 32) / 2
    EXPECT_EQ(legend.entries, QStringList({u"0,31"_s, u"0,53"_s, u"44,31"_s}));
    EXPECT_EQ(legend.rect, QRect(102, 0, 100, 80)); // 44 + 46 + 12
    EXPECT_EQ(legend.size, QSize(304, 80));
}

TEST(PlaceLegend, at_the_right_runs_down_and_leaves_the_chart_where_it_is)
{
    const Placed legend = placed({0, 0, 100, 80}, "right", "Kind");
    EXPECT_EQ(legend.title, "141,0");
    EXPECT_EQ(legend.entries, QStringList({u"112,31"_s, u"112,53"_s, u"156,31"_s}));
    EXPECT_EQ(legend.rect, QRect(0, 0, 100, 80));
    EXPECT_EQ(legend.size, QSize(202, 80));
}

TEST(PlaceLegend, takes_any_other_side_for_the_right)
{
    const Placed right = placed({0, 0, 100, 80}, "right", "Kind");
    for (const QByteArray side : {"", "Top", "TOP", " top", "true", "under"}) {
        const Placed other = placed({0, 0, 100, 80}, side, "Kind");
        EXPECT_EQ(other.entries, right.entries) << side.toStdString();
        EXPECT_EQ(other.size, right.size) << side.toStdString();
    }
}

TEST(PlaceLegend, of_a_vertical_title_takes_one_entry_of_each_line)
{
    const QRect rect(0, 0, 100, 80); // three entries of 22 fit without a title
    EXPECT_EQ(placed(rect, "right", "").entries,
              QStringList({u"112,9"_s, u"112,31"_s, u"112,53"_s}));
    EXPECT_EQ(placed(rect, "right", "Kind").entries,
              QStringList({u"112,31"_s, u"112,53"_s, u"156,31"_s}));
}

TEST(PlaceLegend, of_a_horizontal_title_takes_no_entry)
{
    const QRect rect(0, 0, 150, 80); // three entries of 50 fit
    EXPECT_EQ(placed(rect, "bottom", "").entries,
              QStringList({u"2,92"_s, u"52,92"_s, u"102,92"_s}));
    EXPECT_EQ(placed(rect, "bottom", "Kind").entries,
              QStringList({u"2,114"_s, u"52,114"_s, u"102,114"_s}));
}

TEST(PlaceLegend, behind_the_chart_does_not_count_the_margin)
{
    const Placed legend = placed({4, 4, 100, 80}, "bottom", "");
    EXPECT_EQ(legend.entries.constFirst(), "6,92"); // 80 + 12, and not 4 + 80 + 12
    EXPECT_EQ(legend.size, QSize(108, 136)); // 92 + 22 + 18 + 4
    EXPECT_EQ(placed({4, 4, 100, 80}, "right", "").entries.constFirst(), "112,13");
}

TEST(PlaceLegend, before_the_chart_counts_the_margin)
{
    const Placed legend = placed({4, 4, 100, 80}, "top", "");
    EXPECT_EQ(legend.entries, QStringList({u"6,4"_s, u"56,4"_s, u"6,26"_s}));
    EXPECT_EQ(legend.rect, QRect(4, 60, 100, 80)); // 4 by 40 + 4 + 12
    EXPECT_EQ(legend.size, QSize(108, 200));
}

TEST(PlaceLegend, wider_than_the_chart_is_centred_on_it)
{
    const Placed legend = placed({0, 0, 30, 80}, "top", "");
    EXPECT_EQ(legend.entries, QStringList({u"0,0"_s, u"0,22"_s, u"0,44"_s}));
    EXPECT_EQ(legend.rect, QRect(8, 78, 30, 80)); // (46 - 30) / 2
    EXPECT_EQ(legend.size, QSize(62, 236));
}

TEST(PlaceLegend, higher_than_the_chart_is_centred_on_it)
{
    const Placed legend = placed({0, 0, 100, 5}, "right", "", "a [label=a]");
    EXPECT_EQ(legend.entries, QStringList({u"112,0"_s}));
    EXPECT_EQ(legend.rect, QRect(0, 6, 100, 5)); // (18 - 5) * 0.5 = 6.5
    EXPECT_EQ(legend.size, QSize(147, 30)); // the gap of a full line counts: 112 + 31 + 4
}

TEST(PlaceLegend, title_wider_than_everything_widens_the_drawing)
{
    const Placed legend = placed({0, 0, 20, 80}, "top", "Wide title", "a [label=a]");
    EXPECT_EQ(legend.title, "0,0");
    EXPECT_EQ(legend.entries, QStringList({u"17,22"_s})); // (66 - 31) / 2
    EXPECT_EQ(legend.rect.x(), 23); // (66 - 20) / 2
    EXPECT_EQ(legend.size.width(), 112); // 66 + 2 * 23
}

TEST(PlaceLegend, vertical_title_wider_than_the_entries_centres_them)
{
    const Placed legend = placed({0, 0, 100, 80}, "right", "Wide title", "a [label=a]");
    EXPECT_EQ(legend.title, "112,0");
    EXPECT_EQ(legend.entries, QStringList({u"127,53"_s})); // (66 - 35) / 2 to the right
    EXPECT_EQ(legend.size, QSize(178, 80)); // 112 + 66
}

TEST(PlaceLegend, with_a_title_alone_is_as_large_as_the_title)
{
    const Placed right = placed({0, 0, 100, 80}, "right", "Kind", "");
    EXPECT_EQ(right.title, "112,0");
    EXPECT_EQ(right.size, QSize(144, 80));
    const Placed top = placed({0, 0, 100, 80}, "top", "Kind", "");
    EXPECT_EQ(top.title, "34,0");
    EXPECT_EQ(top.rect, QRect(0, 52, 100, 80)); // 18 + 22 + 12: the title counts twice
}

TEST(PlaceLegend, gives_no_place_to_a_node_without_a_label)
{
    EXPECT_EQ(placed({0, 0, 150, 80}, "bottom", "", "a [label=a] x [] b [label=bb] y [label=\"\"]")
                  .entries,
              QStringList({u"33,92"_s, u","_s, u"77,92"_s, u","_s}));
}

TEST(PlaceLegend, of_no_labels_at_all_still_pushes_the_chart)
{
    const Placed legend = placed({0, 0, 100, 80}, "top", "", "x [] y []");
    EXPECT_EQ(legend.entries, QStringList({u","_s, u","_s}));
    EXPECT_EQ(legend.title, ",");
    EXPECT_EQ(legend.rect, QRect(0, 12, 100, 80));
    EXPECT_EQ(legend.size, QSize(100, 104));
    EXPECT_EQ(placed({0, 0, 100, 80}, "right", "", "").size, QSize(112, 80));
}

TEST(PlaceLegend, inherits_its_title_like_any_label)
{
    const auto graph =
        graphOf("digraph { graph [label=Kind] subgraph key { graph [legend=top] } }");
    RecordingDevice device;
    QRect rect(0, 0, 100, 80);
    placeLegend(graph.get(), rect, findLegend(graph->root()), {graph.get(), &device});
    EXPECT_EQ(position(graph->findSubgraph(u"key"_s)), "34,0");
}

TEST(PlaceLegend, takes_charts_of_every_size)
{
    for (const QByteArray side : {"top", "bottom", "left", "right"}) {
        for (const int width : {INT_MIN, -1, 0, 1, INT_MAX}) {
            for (const int height : {INT_MIN, -1, 0, 1, INT_MAX}) {
                const Placed legend = placed(chartRect(4, 4, width, height), side, "Kind");
                EXPECT_FALSE(legend.entries.contains(u","_s));
                EXPECT_GE(legend.rect.x(), 4);
                EXPECT_GE(legend.rect.y(), 4);
            }
        }
    }
}

TEST(PlaceLegend, of_a_huge_chart_ends_at_the_largest_int)
{
    const Placed right = placed(chartRect(0, 0, INT_MAX, 80), "right", "");
    EXPECT_EQ(right.entries.constFirst(), "2147483647,9");
    EXPECT_EQ(right.size, QSize(INT_MAX, 80));
    const Placed left = placed(chartRect(0, 0, INT_MAX, 80), "left", "");
    EXPECT_EQ(left.rect.right(), INT_MAX);
    EXPECT_EQ(left.size, QSize(INT_MAX, 80));
}

TEST(ChartRect, is_the_rectangle_asked_for)
{
    EXPECT_EQ(chartRect(4, 5, 100, 80), QRect(4, 5, 100, 80));
    EXPECT_EQ(chartRect(4, 5, -4, 0), QRect(4, 5, -4, 0));
    EXPECT_EQ(chartRect(0, 0, INT_MAX, 1).width(), INT_MAX);
}

TEST(ChartRect, is_cut_where_no_int_can_hold_it)
{
    EXPECT_EQ(chartRect(4, 4, Q_INT64_C(1) << 40, 1).right(), INT_MAX);
    EXPECT_EQ(chartRect(4, 4, -(Q_INT64_C(1) << 40), 1).width(), INT_MIN + 1);
    EXPECT_EQ(chartRect(0, 0, 1, INT_MIN).height(), INT_MIN + 1);
}

TEST(DrawLegend, draws_title_and_entries_where_they_were_placed)
{
    const auto graph = graphOf(
        "digraph { subgraph key { graph [legend=bottom label=Kind] "
        "a [label=a fillcolor=red color=blue] x [] b [label=bb fillcolor=\"red;blue\"] } }");
    RecordingDevice device;
    const GraphStyle style(graph.get(), &device);
    QRect rect(0, 0, 100, 80);
    DotSubgraph *legend = findLegend(graph->root());
    placeLegend(graph.get(), rect, legend, style);
    drawLegend(&device, graph.get(), style, legend);
    EXPECT_EQ(device.calls(),
              QStringList({
                  u"beginCluster key"_s,
                  u"text 34,92 \"Kind\" Arial 12 #000000"_s,
                  u"beginNode a"_s,
                  u"rect 8,114 26,132 radius 0 pen blue solid 1 fill red"_s,
                  u"text 30,114 \"a\" Arial 12 #000000"_s,
                  u"endNode"_s,
                  u"beginNode b"_s,
                  u"rect 52,114 70,132 radius 0 pen #000000 solid 1 "
                  "fill linear(52,123 70,123 red@0 blue@1)"_s,
                  u"text 74,114 \"bb\" Arial 12 #000000"_s,
                  u"endNode"_s,
                  u"endCluster"_s,
              }));
}

TEST(DrawLegend, reads_its_places_as_numbers)
{
    const auto graph = graphOf("digraph { subgraph key { graph [label=Kind x=\"3.9\" y=\"-2.9\"] "
                               "a [label=a x=1e300 y=nan] } }");
    RecordingDevice device;
    drawLegend(&device, graph.get(), {graph.get(), &device}, graph->findSubgraph(u"key"_s));
    EXPECT_EQ(device.callsOf(u"text"_s),
              QStringList({u"text 3,-2 \"Kind\" Arial 12 #000000"_s,
                           u"text 2147483647,0 \"a\" Arial 12 #000000"_s}));
}
