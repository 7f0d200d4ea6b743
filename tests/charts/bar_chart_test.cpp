#include "layout/charts/bar_chart.h"

#include "chart_fixture.h"

#include <QRegularExpression>

#include <random>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

// Labels are in Arial 12 with the fonts that the tests are pinned to: 14 high, "a" 7 wide, "bb" 14,
// "ccc" 18, "Kind" 24.
namespace {

const QByteArrayList directions{"BT", "TB", "RL", "LR"};

QStringList barChart(const QByteArray &statements)
{
    return callsOfDrawing<BarChart>("digraph { " + statements + " }");
}

QStringList only(const QString &word, const QStringList &calls)
{
    return calls.filter(QRegularExpression(u'^' + word + u"\\b"_s));
}

QString pageOf(const QByteArray &statements)
{
    return only(u"begin"_s, barChart(statements)).constFirst();
}

// The rectangles of a drawing in their order, as "left,top right,bottom".
QStringList rectsOf(const QByteArray &statements)
{
    QStringList rects;
    for (const QString &call : only(u"rect"_s, barChart(statements)))
        rects += call.section(u' ', 1, 2);
    return rects;
}

QStringList textsOf(const QByteArray &statements)
{
    return only(u"text"_s, barChart(statements))
        .replaceInStrings(u" Arial 12 #000000"_s, QString());
}

QByteArray towards(const QByteArray &direction, const QByteArray &statements)
{
    return "graph [rankdir=" + direction + "] " + statements;
}

} // namespace

TEST(BarChart, of_nothing_is_an_empty_page_four_high)
{
    EXPECT_EQ(barChart(""), QStringList({u"begin 12 4"_s, u"end"_s}));
}

TEST(BarChart, returns_what_the_device_says_in_the_end)
{
    const auto graph = graphOf("digraph { a [area=1] }");
    RecordingDevice device;
    device.setResult(u"Disk on fire\n"_s);
    EXPECT_EQ(BarChart::run({graph.get(), &device}), "Disk on fire\n");
}

TEST(BarChart, grows_upward_for_bt)
{
    const QByteArray chart = towards("BT", "a [area=10] b [area=5]");
    EXPECT_EQ(rectsOf(chart), QStringList({u"4,8 12,24"_s, u"16,16 24,24"_s}));
    EXPECT_EQ(pageOf(chart), "begin 28 28");
}

TEST(BarChart, grows_downward_for_tb)
{
    EXPECT_EQ(rectsOf(towards("TB", "a [area=10] b [area=5]")),
              QStringList({u"4,4 12,20"_s, u"16,4 24,12"_s}));
}

TEST(BarChart, grows_to_the_left_for_rl)
{
    EXPECT_EQ(rectsOf(towards("RL", "a [area=10] b [area=5]")),
              QStringList({u"8,4 24,12"_s, u"16,16 24,24"_s}));
}

TEST(BarChart, grows_to_the_right_for_any_other_direction)
{
    const QStringList rects{u"4,4 20,12"_s, u"4,16 12,24"_s};
    EXPECT_EQ(rectsOf("a [area=10] b [area=5]"), rects);
    for (const QByteArray direction : {"LR", "\"\"", "bt", "up"})
        EXPECT_EQ(rectsOf(towards(direction, "a [area=10] b [area=5]")), rects);
}

TEST(BarChart, makes_a_single_bar_as_thick_as_the_wanted_width_allows)
{
    EXPECT_EQ(rectsOf(towards("BT", "graph [width=100] a [area=5]")),
              QStringList({u"4,8 100,24"_s})); // 100 - 4
}

TEST(BarChart, shares_the_wanted_size_between_the_bars)
{
    EXPECT_EQ(rectsOf("graph [height=100] a [area=5] b [area=5]"),
              QStringList({u"4,4 20,50"_s, u"4,54 20,100"_s})); // (100 - 8) / 2
    EXPECT_EQ(rectsOf("graph [height=101.9] a [area=5] b [area=5]").constLast(), "4,54 20,100");
}

TEST(BarChart, scales_the_longest_bar_to_the_wanted_size)
{
    EXPECT_EQ(rectsOf("graph [width=200] a [area=10] b [area=5]"),
              QStringList({u"4,4 204,12"_s, u"4,16 104,24"_s}));
    EXPECT_EQ(rectsOf(towards("BT", "graph [height=200] a [area=10] b [area=5]")),
              QStringList({u"4,8 12,208"_s, u"16,108 24,208"_s}));
}

TEST(BarChart, takes_a_wish_of_zero_or_less_for_none)
{
    const QStringList rects{u"4,4 20,12"_s, u"4,16 12,24"_s};
    EXPECT_EQ(rectsOf("graph [width=0 height=0] a [area=10] b [area=5]"), rects);
    EXPECT_EQ(rectsOf("graph [width=\"-50\" height=\"-50\"] a [area=10] b [area=5]"), rects);
    EXPECT_EQ(rectsOf("graph [width=0.9 height=word] a [area=10] b [area=5]"), rects);
}

TEST(BarChart, without_a_wish_makes_the_longest_bar_sixteen_long)
{
    EXPECT_EQ(rectsOf(towards("BT", "a [area=5]")), QStringList({u"4,8 12,24"_s}));
    EXPECT_EQ(rectsOf(towards("BT", "a [area=5000000]")), QStringList({u"4,8 12,24"_s}));
}

TEST(BarChart, makes_the_shortest_bar_four_long)
{
    EXPECT_EQ(rectsOf("a [area=10] b [area=1]"), QStringList({u"4,4 44,12"_s, u"4,16 8,24"_s}));
}

TEST(BarChart, grows_until_every_label_fits_along_its_bar)
{
    const QByteArray nodes = "a [area=10 label=ccc] b [area=1 label=bb]";
    EXPECT_EQ(rectsOf(nodes), QStringList({u"4,4 144,18"_s, u"4,22 18,36"_s})); // 14 for 1
    EXPECT_EQ(rectsOf(towards("BT", nodes)), // 14 high for 1, and 18 wide
              QStringList({u"4,8 22,148"_s, u"26,134 44,148"_s}));
    EXPECT_EQ(rectsOf("graph [width=20] " + nodes).constFirst(), "4,4 144,18");
}

TEST(BarChart, does_not_grow_for_the_label_of_a_bar_that_is_not_drawn)
{
    EXPECT_EQ(rectsOf("a [area=10] b [label=ccc] c [area=\"-1\" label=ccc]"),
              QStringList({u"4,4 20,18"_s})); // though it makes bars as thick as the label
}

TEST(BarChart, centres_labels)
{
    EXPECT_EQ(textsOf("a [area=10 label=ccc] b [area=1 label=bb]"),
              QStringList({u"text 65,4 \"ccc\""_s, u"text 4,22 \"bb\""_s})); // (140 - 18) / 2 + 4
    EXPECT_EQ(textsOf("graph [width=101 height=56] a [area=10 label=a]"),
              QStringList({u"text 51,23 \"a\""_s})); // (101 - 7) / 2 + 4, (52 - 14) / 2 + 4
}

TEST(BarChart, truncates_half_points_when_it_centres)
{
    EXPECT_EQ(textsOf("graph [width=100 height=55] a [area=10 label=a]"),
              QStringList({u"text 50,22 \"a\""_s})); // 46.5 + 4, 37 / 2 + 4
}

TEST(BarChart, centres_labels_of_bars_to_the_left)
{
    EXPECT_EQ(textsOf(towards("RL", "a [area=10 label=ccc] b [area=1 label=bb]")),
              QStringList({u"text 69,4 \"ccc\""_s, u"text 134,22 \"bb\""_s})); // 8 + (140 - 18) / 2
}

TEST(BarChart, centres_labels_of_bars_upward_and_downward)
{
    const QByteArray nodes = "a [area=10 label=ccc] b [area=1 label=a]";
    EXPECT_EQ(textsOf(towards("BT", nodes)),
              QStringList({u"text 4,71 \"ccc\""_s, u"text 31,134 \"a\""_s})); // 26 + 5.5
    EXPECT_EQ(textsOf(towards("TB", nodes)),
              QStringList({u"text 4,67 \"ccc\""_s, u"text 31,4 \"a\""_s}));
}

// 18 / 16.3 * 16.3 is a little less than 18: each bar is a point short of its label. "ccc" is 18
// wide, and a line of Arial 16 is 18 high.
TEST(BarChart, lets_a_label_stick_out_on_the_left_or_below)
{
    ASSERT_LT(18.0 / 16.3 * 16.3, 18.0);
    const QByteArray wide = "a [area=16.3 label=ccc]";
    EXPECT_EQ(rectsOf(wide), QStringList({u"4,4 21,18"_s}));
    EXPECT_EQ(textsOf(wide), QStringList({u"text 3,4 \"ccc\""_s})); // 3.5
    const QByteArray high = towards("TB", "a [area=16.3 label=a fontsize=16]");
    EXPECT_EQ(rectsOf(high), QStringList({u"4,4 13,21"_s}));
    EXPECT_EQ(textsOf(high), QStringList({u"text 4,4 \"a\" Arial 16 #000000"_s})); // -1 / 2 + 4
}

TEST(BarChart, counts_a_bar_of_zero_that_it_does_not_draw)
{
    const QByteArray chart = towards("BT", "a [area=0] b [area=10] c []");
    EXPECT_EQ(rectsOf(chart), QStringList({u"4,8 12,24"_s})); // in the first place
    EXPECT_EQ(pageOf(chart), "begin 40 28"); // with room for three
}

TEST(BarChart, stacks_the_nodes_of_a_subgraph)
{
    const QByteArray stacks = "subgraph cluster_1 { a [area=2] b [area=3] } "
                              "subgraph cluster_2 { c [area=4] d [area=1] }";
    EXPECT_EQ(rectsOf(towards("BT", "graph [height=50] " + stacks)),
              QStringList({u"4,38 12,58"_s, u"4,8 12,38"_s, u"16,18 24,58"_s, u"16,8 24,18"_s}));
    EXPECT_EQ(rectsOf(towards("TB", "graph [height=50] " + stacks)),
              QStringList({u"4,4 12,24"_s, u"4,24 12,54"_s, u"16,4 24,44"_s, u"16,44 24,54"_s}));
    EXPECT_EQ(rectsOf("graph [width=50] " + stacks),
              QStringList({u"4,4 24,12"_s, u"24,4 54,12"_s, u"4,16 44,24"_s, u"44,16 54,24"_s}));
    EXPECT_EQ(rectsOf(towards("RL", "graph [width=50] " + stacks)),
              QStringList({u"38,4 58,12"_s, u"8,4 38,12"_s, u"18,16 58,24"_s, u"8,16 18,24"_s}));
}

TEST(BarChart, loses_the_fractions_of_a_stack)
{
    // The sum is 9 and not 11.1: each segment is 16 / 9 * 3.7 = 6.58 long, all of them are 19.7.
    const QByteArray stack = "subgraph { a [area=3.7] b [area=3.7] c [area=3.7] }";
    EXPECT_EQ(pageOf(towards("BT", stack)), "begin 16 28"); // 16 + 4 + 8
    // Upward each truncation lengthens the segment, downward it shortens it.
    EXPECT_EQ(rectsOf(towards("BT", stack)),
              QStringList({u"4,17 12,24"_s, u"4,10 12,17"_s, u"4,3 12,10"_s}));
    EXPECT_EQ(rectsOf(towards("TB", stack)),
              QStringList({u"4,4 12,10"_s, u"4,10 12,16"_s, u"4,16 12,22"_s}));
}

TEST(BarChart, adds_up_stacks_of_any_size)
{
    EXPECT_EQ(rectsOf("graph [width=200] subgraph { a [area=5000000000] b [area=5000000000] }"),
              QStringList({u"4,4 104,12"_s, u"104,4 204,12"_s}));
}

TEST(BarChart, passes_over_what_is_not_a_number_in_a_stack)
{
    EXPECT_EQ(rectsOf("graph [width=200] subgraph { a [area=nan] b [area=5] c [area=5] }"),
              QStringList({u"4,4 104,12"_s, u"104,4 204,12"_s}));
}

TEST(BarChart, writes_the_caption_below_bars_that_grow_upward)
{
    const QByteArray chart = towards("BT", "subgraph s { graph [label=Kind] a [area=4] }");
    EXPECT_EQ(rectsOf(chart), QStringList({u"4,8 28,36"_s})); // 2 * 14 long, 24 thick
    EXPECT_EQ(textsOf(chart), QStringList({u"text 4,40 \"Kind\""_s}));
    EXPECT_EQ(pageOf(chart), "begin 32 58"); // 28 + 4 + 14 + 4 + 8
}

TEST(BarChart, writes_the_caption_above_bars_that_grow_downward)
{
    const QByteArray chart = towards("TB", "subgraph s { graph [label=Kind] a [area=4] }");
    EXPECT_EQ(rectsOf(chart), QStringList({u"4,22 28,50"_s}));
    EXPECT_EQ(textsOf(chart), QStringList({u"text 4,4 \"Kind\""_s}));
}

TEST(BarChart, writes_the_caption_to_the_left_of_bars_that_grow_to_the_right)
{
    const QByteArray chart = "subgraph s { graph [label=Kind] a [area=4] }";
    EXPECT_EQ(rectsOf(chart), QStringList({u"32,4 80,18"_s})); // 2 * 24 long, 14 thick
    EXPECT_EQ(textsOf(chart), QStringList({u"text 4,4 \"Kind\""_s}));
    EXPECT_EQ(pageOf(chart), "begin 88 22");
}

TEST(BarChart, writes_the_caption_to_the_right_of_bars_that_grow_to_the_left)
{
    const QByteArray chart = towards("RL", "subgraph s { graph [label=Kind] a [area=4] }");
    EXPECT_EQ(rectsOf(chart), QStringList({u"8,4 56,18"_s}));
    EXPECT_EQ(textsOf(chart), QStringList({u"text 60,4 \"Kind\""_s}));
}

TEST(BarChart, centres_captions_across_their_bars)
{
    EXPECT_EQ(textsOf("graph [height=57] subgraph s { graph [label=a] a [area=4] }"),
              QStringList({u"text 4,23 \"a\""_s})); // (53 - 14) / 2 + 4
    EXPECT_EQ(textsOf(towards("BT", "graph [width=56] subgraph s { graph [label=a] a [area=4] }")),
              QStringList({u"text 26,40 \"a\""_s})); // (52 - 7) / 2 + 4
}

TEST(BarChart, gives_all_bars_the_band_of_the_largest_caption)
{
    const QByteArray chart = "a [area=4] subgraph s { graph [label=Kind] b [area=4] } "
                             "subgraph t { graph [label=a] c [area=4] }";
    EXPECT_EQ(rectsOf(chart), QStringList({u"32,4 80,18"_s, u"32,22 80,36"_s, u"32,40 80,54"_s}));
    EXPECT_EQ(textsOf(chart), QStringList({u"text 4,22 \"Kind\""_s, u"text 21,40 \"a\""_s}));
}

TEST(BarChart, keeps_the_place_and_the_caption_of_an_empty_stack)
{
    const QByteArray chart = towards("BT",
                                     "subgraph cluster_1 { graph [label=Kind] a [area=0] } "
                                     "subgraph cluster_2 { graph [label=Kind] b [area=4] }");
    EXPECT_EQ(rectsOf(chart), QStringList({u"32,8 56,36"_s}));
    EXPECT_EQ(textsOf(chart), QStringList({u"text 4,40 \"Kind\""_s, u"text 32,40 \"Kind\""_s}));
}

TEST(BarChart, follows_the_numbers_of_automatic_ids)
{
    EXPECT_EQ(only(u"begin(Node|Cluster)"_s,
                   barChart("__N10 [area=1] __N2 [area=1] subgraph cluster_3 { x [area=1] } "
                            "other [area=1]")),
              QStringList({u"beginNode other"_s, u"beginNode __N2"_s, u"beginCluster cluster_3"_s,
                           u"beginNode x"_s, u"beginNode __N10"_s}));
}

TEST(BarChart, keeps_the_segments_of_a_stack_in_the_order_of_the_input)
{
    EXPECT_EQ(only(u"beginNode"_s, barChart("subgraph { __N2 [area=1] __N1 [area=2] }")),
              QStringList({u"beginNode __N2"_s, u"beginNode __N1"_s}));
}

TEST(BarChart, leaves_out_what_is_nested_deeper_than_a_stack)
{
    EXPECT_EQ(only(u"begin(Node|Cluster)"_s,
                   barChart("subgraph s { a [area=1] subgraph t { b [area=9] } }")),
              QStringList({u"beginCluster s"_s, u"beginNode a"_s}));
    const int depth = 100'000;
    EXPECT_EQ(barChart("a [area=1] " + QByteArray("subgraph {").repeated(depth)
                       + QByteArray("}").repeated(depth))
                  .constLast(),
              "end");
}

TEST(BarChart, nests_the_objects_of_the_device)
{
    EXPECT_EQ(barChart("subgraph s { a [area=4] } b [area=4 color=red fillcolor=blue]"),
              QStringList({u"begin 28 28"_s, u"beginNode b"_s,
                           u"rect 4,4 20,12 radius 0 pen red solid 1 fill blue"_s, u"endNode"_s,
                           u"beginCluster s"_s, u"beginNode a"_s,
                           u"rect 4,16 20,24 radius 0 pen #000000 solid 1 fill #FFFFFF"_s,
                           u"endNode"_s, u"endCluster"_s, u"end"_s}));
}

TEST(BarChart, shows_the_first_stop_of_a_gradient)
{
    EXPECT_EQ(only(u"rect"_s, barChart("a [area=4 fillcolor=\"red;blue\"]")),
              QStringList({u"rect 4,4 20,12 radius 0 pen #000000 solid 1 fill red"_s}));
}

TEST(BarChart, does_not_take_the_legend_for_a_bar)
{
    const QByteArray legend = "subgraph key { graph [legend=bottom] k [label=bb area=99] }";
    const QStringList calls = barChart("graph [width=100] a [area=5] " + legend);
    EXPECT_EQ(only(u"begin(Node|Cluster)"_s, calls),
              QStringList({u"beginNode a"_s, u"beginCluster key"_s, u"beginNode k"_s}));
    EXPECT_EQ(only(u"rect"_s, calls).constFirst().section(u' ', 1, 2), "4,4 104,12");
}

TEST(BarChart, draws_within_the_rectangle_that_the_legend_leaves)
{
    const QByteArrayList sides{"top", "bottom", "left", "right"};
    for (qsizetype i = 0; i < sides.size(); ++i) {
        const QByteArray &direction = directions.at(i);
        const QByteArray &side = sides.at(i);
        const QStringList calls = barChart(towards(
            direction,
            "graph [width=100 height=90] subgraph cluster_1 { graph [label=Kind] a [area=3 "
            "label=bb] "
            "b [area=2] } __N2 [area=4 label=a] subgraph key { graph [legend="
                + side + " label=Kind] k [label=a fillcolor=red] l [label=bb] m [label=ccc] }"));
        const QString golden = QStringLiteral(ORR_TEST_FOLDER "/goldens/bar_%1_legend_%2.calls");
        EXPECT_TRUE(matchesGolden(
            calls.join(u'\n').toUtf8() + '\n',
            golden.arg(QString::fromLatin1(direction).toLower(), QString::fromLatin1(side))));
    }
}

namespace {

struct DrawnBar
{
    int left, top, right, bottom;
    double value;

    bool overlaps(const DrawnBar &other) const
    {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    int along(bool horizontal) const { return horizontal ? right - left : bottom - top; }
};

QByteArray randomChart(unsigned seed)
{
    std::mt19937 random(seed);
    auto node = [&random, count = 0]() mutable {
        return "n" + QByteArray::number(++count)
            + " [area=" + QByteArray::number(double(random() % 4000) / 10.0) + " label=\""
            + (random() % 3 ? "" : "word") + "\"] ";
    };
    QByteArray text;
    if (random() % 2)
        text += "graph [width=" + QByteArray::number(int(random() % 900))
            + " height=" + QByteArray::number(int(random() % 900)) + "] ";
    for (unsigned places = 1 + random() % 9; places > 0; --places) {
        if (random() % 2) {
            text += node();
            continue;
        }
        text += "subgraph { graph [label=\"" + QByteArray(random() % 2 ? "Kind" : "") + "\"] ";
        for (unsigned segments = random() % 6; segments > 0; --segments)
            text += node();
        text += "} ";
    }
    return text;
}

} // namespace

TEST(BarChart, draws_bars_that_never_overlap_with_lengths_in_proportion)
{
    int bars = 0;
    for (unsigned seed = 1; seed <= 100; ++seed) {
        const QByteArray &direction = directions.at(seed % 4);
        const bool horizontal = direction == "RL" || direction == "LR";
        const auto graph = graphOf("digraph { " + towards(direction, randomChart(seed)) + "}");
        RecordingDevice device;
        BarChart::run({graph.get(), &device});
        QList<DrawnBar> drawn;
        for (qsizetype i = 0; i < device.calls().size(); ++i) {
            const QString &call = device.calls().at(i);
            if (!call.startsWith("beginNode"_L1))
                continue;
            const QStringList corners =
                device.calls().at(i + 1).section(u' ', 1, 2).replace(u' ', u',').split(u',');
            const DotNode *node = graph->findNode(call.section(u' ', 1));
            const DrawnBar bar{corners.at(0).toInt(), corners.at(1).toInt(), corners.at(2).toInt(),
                               corners.at(3).toInt(),
                               graph->nodeAttribute(node, u"area"_s).toDouble()};
            for (const DrawnBar &other : std::as_const(drawn)) {
                EXPECT_FALSE(bar.overlaps(other)) << "seed " << seed << ' ' << call.toStdString();
                // Each length is cut to whole points.
                const double scale = other.along(horizontal) / other.value;
                EXPECT_NEAR(bar.along(horizontal), bar.value * scale, 1.0 + bar.value / other.value)
                    << "seed " << seed << ' ' << call.toStdString();
            }
            drawn.append(bar);
        }
        bars += int(drawn.size());
    }
    EXPECT_GT(bars, 500);
}

TEST(BarChart, draws_the_same_on_every_run)
{
    EXPECT_EQ(barChart(randomChart(3)), barChart(randomChart(3)));
}

TEST(BarChart, starts_anew_with_each_run)
{
    for (int i = 0; i < 2; ++i) {
        const auto graph = graphOf("digraph { a [area=10] }");
        RecordingDevice device;
        BarChart::run({graph.get(), &device});
        EXPECT_EQ(device.callsOf(u"begin"_s), QStringList({u"begin 28 16"_s}));
    }
}

TEST(BarChart, takes_any_number_in_any_attribute)
{
    const QByteArrayList numbers{"0",   "\"-1\"",   "1e308", "\"-1e308\"", "1e-308", "nan",
                                 "inf", "\"-inf\"", "\"\"",  "word",       "5e-324", "99999999999"};
    const auto dot = [](const QByteArray &attribute, const QByteArray &a, const QByteArray &b) {
        const auto in = [&](const QByteArray &names, const QByteArray &value) {
            return names.contains(attribute) ? attribute + "=" + value : QByteArray();
        };
        return "graph [" + in("width height", a) + "] subgraph s { graph [label=a "
            + in("fontsize", b) + "] x [label=a " + in("area fontsize", a) + "] y [" + in("area", b)
            + "] z [" + in("area", a) + "] w [area=2] } t [label=a " + in("area fontsize", b)
            + "] u [area=3] subgraph key { graph [legend=top label=a] k [label=a "
            + in("fontsize x y", a) + "] }";
    };
    for (const QByteArray attribute : {"width", "height", "area", "fontsize", "x", "y"}) {
        for (const QByteArray &a : numbers) {
            for (const QByteArray &b : numbers) {
                for (const QByteArray &direction : directions) {
                    const QStringList calls = barChart(towards(direction, dot(attribute, a, b)));
                    EXPECT_EQ(calls.constLast(), "end") << attribute.toStdString();
                    EXPECT_EQ(only(u"beginNode"_s, calls).size(), only(u"endNode"_s, calls).size());
                }
            }
        }
    }
}
