#include "layout/charts/chart_legend.h"

#include "chart_fixture.h"
#include "layout/charts/chart_rect.h"

#include <climits>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

// The labels of these tests, in Arial 12 with the fonts that the tests are pinned to, are all 14
// high; "a" is 7 wide, "bb" 14, "ccc" 18, "Kind" 24, "Wide title" 50. An entry is its label's width
// + 4 + 14 long: 25, 32 and 36.
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
    DotSubgraph *legend = findLegend(graph.get());
    Placed result;
    result.size = ChartLegend(graph.get(), legend, style).place(rect);
    result.rect = rect;
    result.title = position(legend);
    for (const DotNode *node : std::as_const(legend->nodes))
        result.entries += position(node);
    return result;
}

QString legendOf(const QByteArray &dot)
{
    const auto graph = graphOf(dot);
    const DotSubgraph *legend = findLegend(graph.get());
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
    const ChartLegend none(&graph, nullptr, style);
    EXPECT_EQ(none.place(rect), QSize(108, 90));
    EXPECT_EQ(rect, QRect(4, 5, 100, 80));
    none.draw(&device);
    EXPECT_EQ(device.calls(), QStringList());
}

TEST(PlaceLegend, at_the_top_runs_across_and_pushes_the_chart_down)
{
    const Placed legend = placed({0, 0, 80, 80}, "top", "Kind");
    EXPECT_EQ(legend.title, "28,0"); // (80 - 24) / 2
    EXPECT_EQ(legend.entries, QStringList({u"2,18"_s, u"42,18"_s, u"2,36"_s})); // two of 40 fit
    EXPECT_EQ(legend.rect, QRect(0, 62, 80, 80)); // 36 + 14 + 12
    EXPECT_EQ(legend.size, QSize(80, 204)); // the room above the chart is kept below it too
    EXPECT_EQ(placed({0, 0, 79, 80}, "top", "Kind").entries,
              QStringList({u"21,18"_s, u"21,36"_s, u"21,54"_s})); // the last gap needs room too
}

TEST(PlaceLegend, at_the_bottom_runs_across_and_leaves_the_chart_where_it_is)
{
    const Placed legend = placed({0, 0, 80, 80}, "bottom", "Kind");
    EXPECT_EQ(legend.title, "28,92");
    EXPECT_EQ(legend.entries, QStringList({u"2,110"_s, u"42,110"_s, u"2,128"_s}));
    EXPECT_EQ(legend.rect, QRect(0, 0, 80, 80));
    EXPECT_EQ(legend.size, QSize(80, 142));
}

TEST(PlaceLegend, at_the_left_runs_down_and_pushes_the_chart_aside)
{
    const Placed legend = placed({0, 0, 100, 80}, "left", "Kind");
    EXPECT_EQ(legend.title, "24,0"); // (72 - 24) / 2
    EXPECT_EQ(legend.entries, QStringList({u"0,33"_s, u"0,51"_s, u"36,33"_s}));
    EXPECT_EQ(legend.rect, QRect(84, 0, 100, 80)); // 36 + 36 + 12
    EXPECT_EQ(legend.size, QSize(268, 80));
}

TEST(PlaceLegend, at_the_right_runs_down_and_leaves_the_chart_where_it_is)
{
    const Placed legend = placed({0, 0, 100, 80}, "right", "Kind");
    EXPECT_EQ(legend.title, "136,0");
    EXPECT_EQ(legend.entries, QStringList({u"112,33"_s, u"112,51"_s, u"148,33"_s}));
    EXPECT_EQ(legend.rect, QRect(0, 0, 100, 80));
    EXPECT_EQ(legend.size, QSize(184, 80));
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
    const QRect rect(0, 0, 100, 66); // three entries of 18 fit without a title
    EXPECT_EQ(placed(rect, "right", "").entries,
              QStringList({u"112,8"_s, u"112,26"_s, u"112,44"_s}));
    EXPECT_EQ(placed(rect, "right", "Kind").entries,
              QStringList({u"112,26"_s, u"112,44"_s, u"148,26"_s}));
}

TEST(PlaceLegend, of_a_horizontal_title_takes_no_entry)
{
    const QRect rect(0, 0, 120, 80); // three entries of 40 fit
    EXPECT_EQ(placed(rect, "bottom", "").entries, QStringList({u"2,92"_s, u"42,92"_s, u"82,92"_s}));
    EXPECT_EQ(placed(rect, "bottom", "Kind").entries,
              QStringList({u"2,110"_s, u"42,110"_s, u"82,110"_s}));
}

TEST(PlaceLegend, behind_the_chart_does_not_count_the_margin)
{
    const Placed legend = placed({4, 4, 100, 80}, "bottom", "");
    EXPECT_EQ(legend.entries.constFirst(), "16,92"); // 80 + 12, and not 4 + 80 + 12
    EXPECT_EQ(legend.size, QSize(108, 128)); // 92 + 18 + 14 + 4
    EXPECT_EQ(placed({4, 4, 100, 80}, "right", "").entries.constFirst(), "112,19");
}

TEST(PlaceLegend, before_the_chart_counts_the_margin)
{
    const Placed legend = placed({4, 4, 100, 80}, "top", "");
    EXPECT_EQ(legend.entries, QStringList({u"16,4"_s, u"56,4"_s, u"16,22"_s}));
    EXPECT_EQ(legend.rect, QRect(4, 52, 100, 80)); // 4 by 32 + 4 + 12
    EXPECT_EQ(legend.size, QSize(108, 184));
}

TEST(PlaceLegend, wider_than_the_chart_is_centred_on_it)
{
    const Placed legend = placed({0, 0, 30, 80}, "top", "");
    EXPECT_EQ(legend.entries, QStringList({u"0,0"_s, u"0,18"_s, u"0,36"_s}));
    EXPECT_EQ(legend.rect, QRect(3, 66, 30, 80)); // (36 - 30) / 2
    EXPECT_EQ(legend.size, QSize(42, 212));
}

TEST(PlaceLegend, higher_than_the_chart_is_centred_on_it)
{
    const Placed legend = placed({0, 0, 100, 5}, "right", "", "a [label=a]");
    EXPECT_EQ(legend.entries, QStringList({u"112,0"_s}));
    EXPECT_EQ(legend.rect, QRect(0, 4, 100, 5)); // (14 - 5) * 0.5 = 4.5
    EXPECT_EQ(legend.size, QSize(141, 22)); // the gap of a full line counts: 112 + 25 + 4
}

TEST(PlaceLegend, title_wider_than_everything_widens_the_drawing)
{
    const Placed legend = placed({0, 0, 20, 80}, "top", "Wide title", "a [label=a]");
    EXPECT_EQ(legend.title, "0,0");
    EXPECT_EQ(legend.entries, QStringList({u"12,18"_s})); // (50 - 25) / 2
    EXPECT_EQ(legend.rect.x(), 15); // (50 - 20) / 2
    EXPECT_EQ(legend.size.width(), 80); // 50 + 2 * 15
}

TEST(PlaceLegend, vertical_title_wider_than_the_entries_centres_them)
{
    const Placed legend = placed({0, 0, 100, 80}, "right", "Wide title", "a [label=a]");
    EXPECT_EQ(legend.title, "112,0");
    EXPECT_EQ(legend.entries, QStringList({u"122,51"_s})); // (50 - 29) / 2 to the right
    EXPECT_EQ(legend.size, QSize(162, 80)); // 112 + 50
}

TEST(PlaceLegend, with_a_title_alone_is_as_large_as_the_title)
{
    const Placed right = placed({0, 0, 100, 80}, "right", "Kind", "");
    EXPECT_EQ(right.title, "112,0");
    EXPECT_EQ(right.size, QSize(136, 80));
    const Placed top = placed({0, 0, 100, 80}, "top", "Kind", "");
    EXPECT_EQ(top.title, "38,0");
    EXPECT_EQ(top.rect, QRect(0, 44, 100, 80)); // 14 + 18 + 12: the title counts twice
}

TEST(PlaceLegend, gives_no_place_to_a_node_without_a_label)
{
    EXPECT_EQ(placed({0, 0, 150, 80}, "bottom", "", "a [label=a] x [] b [label=bb] y [label=\"\"]")
                  .entries,
              QStringList({u"41,92"_s, u","_s, u"77,92"_s, u","_s}));
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
    const GraphStyle style(graph.get(), &device);
    ChartLegend(graph.get(), findLegend(graph.get()), style).place(rect);
    EXPECT_EQ(position(graph->findSubgraph(u"key"_s)), "38,0");
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
    EXPECT_EQ(right.entries.constFirst(), "2147483647,15");
    EXPECT_EQ(right.size, QSize(INT_MAX, 80));
    const Placed left = placed(chartRect(0, 0, INT_MAX, 80), "left", "");
    EXPECT_EQ(left.rect.right(), INT_MAX);
    EXPECT_EQ(left.size, QSize(INT_MAX, 80));
}

TEST(DrawLegend, draws_title_and_entries_where_they_were_placed)
{
    const auto graph = graphOf(
        "digraph { subgraph key { graph [legend=bottom label=Kind] "
        "a [label=a fillcolor=red color=blue] x [] b [label=bb fillcolor=\"red;blue\"] } }");
    RecordingDevice device;
    const GraphStyle style(graph.get(), &device);
    QRect rect(0, 0, 100, 80);
    const ChartLegend legend(graph.get(), findLegend(graph.get()), style);
    legend.place(rect);
    legend.draw(&device);
    EXPECT_EQ(device.calls(),
              QStringList({
                  u"beginCluster key"_s,
                  u"text 38,92 \"Kind\" Arial 12 #000000"_s,
                  u"beginNode a"_s,
                  u"rect 16,110 30,124 radius 0 pen blue solid 1 fill red"_s,
                  u"text 34,110 \"a\" Arial 12 #000000"_s,
                  u"endNode"_s,
                  u"beginNode b"_s,
                  u"rect 52,110 66,124 radius 0 pen #000000 solid 1 "
                  "fill linear(52,117 66,117 red@0 blue@1)"_s,
                  u"text 70,110 \"bb\" Arial 12 #000000"_s,
                  u"endNode"_s,
                  u"endCluster"_s,
              }));
}

TEST(DrawLegend, reads_its_places_as_numbers)
{
    const auto graph = graphOf("digraph { subgraph key { graph [label=Kind x=\"3.9\" y=\"-2.9\"] "
                               "a [label=a x=1e300 y=nan] } }");
    RecordingDevice device;
    const GraphStyle style(graph.get(), &device);
    ChartLegend(graph.get(), graph->findSubgraph(u"key"_s), style).draw(&device);
    EXPECT_EQ(device.callsOf(u"text"_s),
              QStringList({u"text 3,-2 \"Kind\" Arial 12 #000000"_s,
                           u"text 2147483647,0 \"a\" Arial 12 #000000"_s}));
}
