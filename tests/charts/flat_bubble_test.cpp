#include "device/text_image.h"
#include "graph/dot_parser.h"
#include "layout/charts/flat_bubble.h"
#include "support/golden.h"
#include "support/recording_device.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include <cmath>
#include <random>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

const QString goldens = QStringLiteral(ORR_TEST_FOLDER "/goldens/flat_bubble_");

QStringList callsFor(DotGraph *graph)
{
    RecordingDevice device;
    EXPECT_EQ(FlatBubble::run({graph, &device}), QString());
    return device.calls();
}

QStringList callsFor(const QByteArray &dot)
{
    const auto graph = parseDot(dot);
    if (!graph) {
        ADD_FAILURE() << "rejected: " << dot.toStdString();
        return {};
    }
    return callsFor(graph.get());
}

struct Ellipse
{
    double x = 0.0;
    double y = 0.0;
    double r = 0.0;
};

QList<Ellipse> ellipsesIn(const QStringList &calls)
{
    static const QRegularExpression pattern(
        u"^ellipse (-?\\d+),(-?\\d+) radii (-?\\d+),(-?\\d+) "_s);
    QList<Ellipse> ellipses;
    for (const QString &call : calls) {
        const auto match = pattern.match(call);
        if (match.hasMatch())
            ellipses.append({match.captured(1).toDouble(), match.captured(2).toDouble(),
                             match.captured(3).toDouble()});
    }
    return ellipses;
}

QSize sizeOf(const QString &label)
{
    RecordingDevice device;
    return TextImage::textSize(label, device.defaultFont(), false);
}

double number(const DotObject *object, const QString &name)
{
    return object->attributes.value(name).toDouble();
}

} // namespace

TEST(FlatBubble, without_nodes_is_a_page_of_nothing)
{
    EXPECT_EQ(callsFor("digraph {}"), QStringList({u"begin 0 0"_s, u"end"_s}));
}

TEST(FlatBubble, a_legend_alone_is_drawn)
{
    const QStringList calls =
        callsFor("digraph { subgraph l { graph [legend=right] a [label=x] } }");
    EXPECT_TRUE(calls.contains(u"beginCluster l"_s));
    EXPECT_TRUE(ellipsesIn(calls).isEmpty());
}

TEST(FlatBubble, a_node_without_a_size_is_a_point)
{
    EXPECT_EQ(callsFor("digraph { a [] }"),
              QStringList({u"begin 2 2"_s, u"beginNode a"_s,
                           u"ellipse 1,1 radii 0,0 pen #000000 solid 1 fill #FFFFFF"_s,
                           u"endNode"_s, u"end"_s}));
}

TEST(FlatBubble, a_node_without_a_size_grows_with_the_scale_less_its_padding)
{
    const QList<Ellipse> drawn = ellipsesIn(callsFor("digraph { graph [width=20] a [] }"));
    ASSERT_EQ(drawn.size(), 1);
    EXPECT_EQ(drawn.at(0).r, 9); // a scale of 10, minus 1
}

TEST(FlatBubble, radius_wins_over_area_only_if_it_is_positive)
{
    const auto radiusDrawn = [](const QByteArray &attributes) {
        const QList<Ellipse> drawn = ellipsesIn(callsFor("digraph { a [" + attributes + "] }"));
        return drawn.size() == 1 ? drawn.at(0).r : -1.0;
    };
    EXPECT_EQ(radiusDrawn("radius=10 area=314"), 10);
    EXPECT_EQ(radiusDrawn("radius=0 area=314"), 10);
    EXPECT_EQ(radiusDrawn("radius=\"-5\" area=314"), 10);
    EXPECT_EQ(radiusDrawn("area=314"), 10); // 3.14, not pi, which would give 9
    EXPECT_EQ(radiusDrawn("radius=nan area=314"), 10);
}

TEST(FlatBubble, two_circles_lie_on_a_line_two_points_apart)
{
    const auto graph = parseDot("digraph { a [radius=30] b [radius=10] }");
    const QStringList calls = callsFor(graph.get());
    EXPECT_EQ(calls.constFirst(), u"begin 84 84"_s);
    const QList<Ellipse> drawn = ellipsesIn(calls);
    ASSERT_EQ(drawn.size(), 2);
    EXPECT_EQ(drawn.at(0).y, 42);
    EXPECT_EQ(drawn.at(1).y, 42);
    EXPECT_EQ(drawn.at(1).x - drawn.at(0).x, 30 + 10 + 2);
    // They touch at the difference of their packed radii.
    const DotNode *a = graph->findNode(u"a"_s);
    EXPECT_EQ(number(a, u"x"_s) + number(a, u"r"_s), 31 - 11);
}

TEST(FlatBubble, a_label_larger_than_its_circle_scales_the_whole_drawing)
{
    const QString label = u"a long label"_s;
    const QSize size = sizeOf(label);
    const auto graph =
        parseDot("digraph { a [radius=9 label=\"" + label.toUtf8() + "\"] b [radius=49] }");
    const QList<Ellipse> drawn = ellipsesIn(callsFor(graph.get()));
    ASSERT_EQ(drawn.size(), 2);
    const double scale = (size.width() + 4.0) / 20.0;
    ASSERT_GT(scale, 1.0);
    EXPECT_EQ(drawn.at(0).r, std::trunc(10 * scale - 1));
    EXPECT_EQ(drawn.at(1).r, std::trunc(50 * scale - 1));
}

TEST(FlatBubble, a_label_that_fits_scales_nothing)
{
    const QList<Ellipse> drawn =
        ellipsesIn(callsFor("digraph { a [radius=400 label=fits] b [radius=3] }"));
    ASSERT_EQ(drawn.size(), 2);
    EXPECT_EQ(drawn.at(0).r, 400);
}

TEST(FlatBubble, the_label_of_a_group_counts_but_not_that_of_the_root_or_the_legend)
{
    const QByteArray wide(200, 'w');
    const auto largest = [](const QByteArray &dot) {
        double r = 0.0;
        for (const Ellipse &ellipse : ellipsesIn(callsFor(dot)))
            r = std::max(r, ellipse.r);
        return r;
    };
    EXPECT_GT(largest("digraph { subgraph g { graph [label=" + wide + "] a [radius=5] } }"), 100);
    EXPECT_EQ(largest("digraph { graph [label=" + wide + "] a [radius=5] }"), 5);
    EXPECT_EQ(largest("digraph { a [radius=5] subgraph l { graph [legend=top label=" + wide
                      + "] k [label=" + wide + "] } }"),
              5);
    // A legend within a group does not take the circle of that group for its own.
    EXPECT_EQ(largest("digraph { subgraph g { graph [label=\"\"] a [radius=5] "
                      "subgraph l { graph [legend=top label="
                      + wide + "] k [label=x] } } }"),
              6);
}

TEST(FlatBubble, a_label_of_the_legend_counts_where_the_input_gives_a_radius)
{
    const auto radius = [](const QByteArray &attributes) {
        return ellipsesIn(callsFor("digraph { subgraph l { graph [legend=top label=\"\"] k [label="
                                   + QByteArray(200, 'w') + attributes + "] } a [radius=5] }"))
            .value(0)
            .r;
    };
    EXPECT_EQ(radius(""), 5);
    EXPECT_EQ(radius(" r=0"), 5);
    EXPECT_GT(radius(" r=6"), 100);
}

TEST(FlatBubble, a_group_behind_the_legend_keeps_its_label)
{
    const QStringList calls = callsFor("digraph { subgraph l { graph [legend=top] k [label=key] } "
                                       "subgraph g { graph [label=G] a [radius=40 label=b] } }");
    EXPECT_EQ(calls.filter(u"\"G\""_s).size(), 1) << calls.join(u'\n').toStdString();
    EXPECT_EQ(calls.filter(u"\"b\""_s).size(), 1);
}

TEST(FlatBubble, the_larger_wanted_size_is_the_diameter)
{
    EXPECT_EQ(
        callsFor("digraph { graph [width=500 height=300] a [radius=9] b [radius=5] }").constFirst(),
        u"begin 500 500"_s);
    EXPECT_EQ(callsFor("digraph { graph [width=300 height=500] a [radius=9] }").constFirst(),
              u"begin 500 500"_s);
}

TEST(FlatBubble, a_label_may_ask_for_more_than_the_wanted_size)
{
    const QStringList calls =
        callsFor("digraph { graph [width=50] a [radius=1 label=\"more than fifty points\"] }");
    EXPECT_GT(ellipsesIn(calls).value(0).r * 2, 50);
}

TEST(FlatBubble, a_wanted_size_below_the_packed_one_changes_nothing)
{
    EXPECT_EQ(callsFor("digraph { graph [width=5] a [radius=9] }").constFirst(), u"begin 20 20"_s);
}

TEST(FlatBubble, groups_are_painted_below_their_members_and_their_labels_above)
{
    const auto graph = parseDot("digraph { graph [label=root] node [fillcolor=white]\n"
                                "a [radius=20]\n"
                                "subgraph g { graph [label=G fillcolor=silver]\n"
                                "  b [radius=30 label=b] c [radius=10] }\n"
                                "subgraph l { graph [legend=right label=L] k [label=key] } }");
    RecordingDevice device;
    FlatBubble::run({graph.get(), &device});
    EXPECT_TRUE(matchesGolden(device.log().toUtf8(), goldens + u"nested.txt"_s));
}

TEST(FlatBubble, positions_are_kept_as_texts_of_six_digits)
{
    const auto graph = parseDot("digraph { a [area=1000] b [radius=2] }");
    callsFor(graph.get());
    const DotNode *a = graph->findNode(u"a"_s);
    EXPECT_EQ(a->attributes.value(u"r"_s), u"18.8458"_s); // sqrt(1000 / 3.14) + 1
    EXPECT_EQ(a->attributes.value(u"x"_s), u"-3"_s);
    EXPECT_EQ(a->attributes.value(u"y"_s), u"0"_s);
}

TEST(FlatBubble, circles_are_drawn_apart_and_inside_their_group)
{
    std::mt19937 random(5);
    std::uniform_int_distribution<int> radius(1, 200);
    QByteArray dot = "digraph {";
    for (int group = 0; group < 12; ++group) {
        dot += "subgraph g" + QByteArray::number(group) + " {";
        for (int i = 0; i <= group; ++i)
            dot += "n" + QByteArray::number(group * 100 + i)
                + " [radius=" + QByteArray::number(radius(random)) + "]";
        dot += "}";
    }
    const auto graph = parseDot(dot + "}");
    callsFor(graph.get());
    for (const DotSubgraph *group : std::as_const(graph->root()->subgraphs)) {
        const double outer = number(group, u"r"_s) - 1.0;
        for (const DotNode *a : group->nodes) {
            const double ax = number(a, u"x"_s);
            const double ay = number(a, u"y"_s);
            const double ar = number(a, u"r"_s);
            EXPECT_LE(std::hypot(ax, ay) + ar, outer + 0.01);
            for (const DotNode *b : group->nodes) {
                if (a == b)
                    continue;
                EXPECT_GE(std::hypot(number(b, u"x"_s) - ax, number(b, u"y"_s) - ay),
                          ar + number(b, u"r"_s) - 0.01);
            }
        }
    }
}

TEST(FlatBubble, the_same_input_gives_the_same_drawing)
{
    QByteArray dot = "digraph {";
    for (int i = 0; i < 300; ++i)
        dot += "n" + QByteArray::number(i) + " [area=" + QByteArray::number(i * i % 977) + "]";
    const QStringList first = callsFor(dot + "}");
    EXPECT_EQ(first, callsFor(dot + "}"));
    // A fixed place in it, which the shuffled search for the enclosing circle leads to.
    EXPECT_EQ(first.constFirst(), u"begin 554 554"_s);
    EXPECT_EQ(ellipsesIn(first).value(42).x, 313);
}

TEST(FlatBubble, sizes_of_files_end_and_stay_apart)
{
    const auto graph = parseDot("digraph { a [radius=172163] b [radius=17158] c [radius=166488] "
                                "d [radius=78413] }");
    const QList<Ellipse> drawn = ellipsesIn(callsFor(graph.get()));
    ASSERT_EQ(drawn.size(), 4);
    for (const Ellipse &a : drawn) {
        for (const Ellipse &b : drawn) {
            if (&a == &b)
                continue;
            EXPECT_GE(std::hypot(a.x - b.x, a.y - b.y), a.r + b.r);
        }
    }
}

TEST(FlatBubble, areas_that_are_no_sizes_end)
{
    for (const QByteArray bad : {"nan", "inf", "\"-inf\"", "\"-3\"", "1e308", "1e-320", "x"}) {
        for (const QByteArray name : {"area", "radius"}) {
            const QByteArray node = "[" + name + "=" + bad + "]";
            EXPECT_EQ(ellipsesIn(callsFor("digraph { a " + node + " }")).size(), 1);
            EXPECT_EQ(ellipsesIn(callsFor("digraph { a " + node + " b [area=9] }")).size(), 2);
            EXPECT_EQ(ellipsesIn(callsFor("digraph { a " + node + " b [area=9] c [area=5] d " + node
                                          + " }"))
                          .size(),
                      4);
            EXPECT_EQ(ellipsesIn(callsFor("digraph { subgraph s { a " + node
                                          + " } b [area=9] c [area=5] d [radius=4 label=d] }"))
                          .size(),
                      5);
        }
    }
}

TEST(FlatBubble, wanted_sizes_that_are_none_end)
{
    for (const QByteArray bad : {"nan", "inf", "\"-inf\"", "\"-3\"", "1e308", "x"}) {
        const QStringList calls = callsFor("digraph { graph [width=" + bad
                                           + "] a [radius=3] b [radius=4] c [radius=5] }");
        EXPECT_EQ(ellipsesIn(calls).size(), 3) << bad.toStdString();
    }
}

TEST(FlatBubble, what_no_int_could_measure_is_scaled_down)
{
    for (const QByteArray huge : {"1e10", "1e300", "1e308", "inf"}) {
        const QStringList calls =
            callsFor("digraph { node [radius=" + huge
                     + "] subgraph g { a [] b [] } subgraph h { c [] } d [] }");
        EXPECT_EQ(calls.constFirst(), u"begin 2147483647 2147483647"_s);
        const QList<Ellipse> drawn = ellipsesIn(calls);
        ASSERT_EQ(drawn.size(), 6);
        for (const Ellipse &circle : drawn) {
            EXPECT_GT(circle.r, 1e8) << huge.toStdString();
            EXPECT_LT(circle.r, 1.1e9) << huge.toStdString();
            EXPECT_GE(circle.x, circle.r) << huge.toStdString();
            EXPECT_LE(circle.x, 2147483647 - circle.r) << huge.toStdString();
        }
        EXPECT_NE(drawn.at(1).x, drawn.at(2).x); // a and b
    }
}

TEST(FlatBubble, a_wanted_size_that_no_int_holds_is_scaled_down_too)
{
    const QList<Ellipse> drawn =
        ellipsesIn(callsFor("digraph { graph [width=1e12] a [radius=3] b [radius=3] }"));
    ASSERT_EQ(drawn.size(), 2);
    EXPECT_EQ(drawn.at(0).r, drawn.at(1).r);
    EXPECT_GT(drawn.at(1).x - drawn.at(0).x, 1e9);
}

TEST(FlatBubble, draws_a_deep_nest_of_groups)
{
    constexpr int depth = 100000;
    QByteArray dot = "digraph {";
    for (int i = 0; i < depth; ++i)
        dot += "subgraph {";
    dot += "a [radius=1]" + QByteArray(depth, '}') + "}";
    const auto graph = parseDot(dot);
    RecordingDevice device(false);
    FlatBubble::run({graph.get(), &device});
    const QStringList calls = device.calls();
    EXPECT_EQ(calls.constFirst(), u"begin 200004 200004"_s);
    EXPECT_EQ(ellipsesIn(calls).size(), depth + 1);
}
