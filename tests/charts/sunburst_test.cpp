#include "graph/dot_parser.h"
#include "layout/charts/sunburst.h"
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

const QString goldens = QStringLiteral(ORR_TEST_FOLDER "/goldens/sunburst_");

QStringList callsFor(DotGraph *graph)
{
    RecordingDevice device;
    EXPECT_EQ(Sunburst::run({graph, &device}), QString());
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

QStringList pathsIn(const QStringList &calls)
{
    return calls.filter(QRegularExpression(u"^path "_s));
}

// The nodes that were drawn, in order.
QStringList nodesIn(const QStringList &calls)
{
    QStringList ids;
    for (const QString &call : calls) {
        if (call.startsWith("beginNode "_L1))
            ids += call.sliced(10);
    }
    return ids;
}

QString own(const DotObject *object, const QString &name)
{
    return object->attributes.value(name);
}

double sweepOf(const DotObject *object)
{
    return own(object, u"sweep"_s).toDouble();
}

} // namespace

TEST(Sunburst, an_empty_graph_is_a_margin)
{
    // No item stays, so the first ring has no width.
    EXPECT_EQ(callsFor("digraph {}"),
              QStringList({u"begin 8 8"_s, u"beginCluster name"_s, u"endCluster"_s, u"end"_s}));
}

TEST(Sunburst, one_node_is_a_full_circle)
{
    const QStringList calls = callsFor("digraph { graph [rstep=50] a [area=3] }");
    EXPECT_EQ(calls.constFirst(), u"begin 108 108"_s);
    EXPECT_EQ(
        pathsIn(calls),
        QStringList(
            {u"path M 54,54 L 104,54 A 4,4 104,104 0 360 Z pen #000000 solid 1 fill #FFFFFF"_s}));
}

TEST(Sunburst, rings_nest_and_slices_share_the_angle)
{
    const auto graph = parseDot("digraph { graph [rstep=40]\n"
                                "subgraph g { a [area=2 fillcolor=red] b [area=1] }\n"
                                "c [area=1 fillcolor=blue]\n"
                                "subgraph l { graph [legend=bottom] k [label=key] } }");
    RecordingDevice device;
    Sunburst::run({graph.get(), &device});
    EXPECT_TRUE(matchesGolden(device.log().toUtf8(), goldens + u"nested.txt"_s));
}

TEST(Sunburst, a_root_without_a_sweep_is_given_a_whole_turn)
{
    const auto graph = parseDot("digraph { a [area=1] }");
    callsFor(graph.get());
    EXPECT_EQ(own(graph->root(), u"sweep"_s), u"360"_s);
    EXPECT_EQ(own(graph->root(), u"area"_s), u"1"_s);
    const DotNode *a = graph->findNode(u"a"_s);
    EXPECT_EQ(own(a, u"sweep"_s), u"360"_s);
    EXPECT_EQ(own(a, u"a0"_s), u"0"_s);
    EXPECT_EQ(own(a, u"r0"_s), u"0"_s);
    EXPECT_EQ(own(a, u"r1"_s), u"72"_s);
}

TEST(Sunburst, a_sweep_too_small_to_be_seen_draws_nothing)
{
    for (const QByteArray sweep : {"0.28", "0", "\"-90\""}) {
        const QStringList calls = callsFor("digraph { graph [sweep=" + sweep + "] a [area=3] }");
        EXPECT_EQ(calls.constFirst(), u"begin 8 8"_s) << sweep.toStdString();
        EXPECT_TRUE(pathsIn(calls).isEmpty()) << sweep.toStdString();
    }
}

TEST(Sunburst, half_a_turn_takes_half_a_page)
{
    const QStringList calls = callsFor("digraph { graph [sweep=180 rstep=50] a [area=3] }");
    EXPECT_EQ(calls.constFirst(), u"begin 108 58"_s);
    EXPECT_TRUE(pathsIn(calls).value(0).startsWith("path M 54,54 L "_L1)); // on the lower edge
    EXPECT_EQ(callsFor("digraph { graph [sweep=181 rstep=50] a [area=3] }").constFirst(),
              u"begin 108 108"_s);
}

TEST(Sunburst, the_width_of_a_ring_has_a_default)
{
    for (const QByteArray step : {"0", "\"-3\"", "nan", "x"})
        EXPECT_EQ(callsFor("digraph { graph [rstep=" + step + "] a [area=1] }").constFirst(),
                  u"begin 152 152"_s)
            << step.toStdString();
}

TEST(Sunburst, the_first_ring_starts_at_r1_and_the_disc_of_the_root_ends_there)
{
    const QStringList calls =
        callsFor("digraph { graph [r1=20 rstep=30 a0=90 fillcolor=red] a [area=1] b [area=1] }");
    EXPECT_EQ(calls.constFirst(), u"begin 108 108"_s);
    const QStringList paths = pathsIn(calls);
    ASSERT_EQ(paths.size(), 3);
    EXPECT_EQ(paths.at(0),
              u"path M 54,54 L 54,34 A 34,34 74,74 90 360 Z pen black solid 1 fill red"_s);
    EXPECT_EQ(paths.at(1),
              u"path M 54,4 A 4,4 104,104 90 180 L 54,74 A 34,34 74,74 270 -180 Z "
              "pen #000000 solid 1 fill #FFFFFF"_s);
}

TEST(Sunburst, the_disc_of_the_root_may_have_a_hole)
{
    const QStringList calls = callsFor("digraph { graph [r0=10 r1=20 rstep=30] a [area=1] }");
    EXPECT_EQ(pathsIn(calls).value(0),
              u"path M 74,54 A 34,34 74,74 0 360 L 64,54 A 44,44 64,64 360 -360 Z "
              "pen black solid 1 fill #FFFFFF"_s);
    EXPECT_EQ(pathsIn(callsFor("digraph { graph [r0=20 r1=20] a [area=1] }")).size(), 1);
}

TEST(Sunburst, dropping_the_smallest_saves_the_next)
{
    // A first share of 0.2899 degrees goes; without it the next one has 0.29002.
    const auto graph = parseDot("digraph { a [area=805] b [area=805.5] c [area=998389.5] }");
    EXPECT_EQ(nodesIn(callsFor(graph.get())), QStringList({u"b"_s, u"c"_s}));
    EXPECT_TRUE(own(graph->findNode(u"a"_s), u"sweep"_s).isNull());
    EXPECT_NEAR(sweepOf(graph->findNode(u"b"_s)) + sweepOf(graph->findNode(u"c"_s)), 360.0, 1e-3);
}

TEST(Sunburst, a_share_at_the_threshold_stays)
{
    // 0.29 of 360 and just below.
    EXPECT_EQ(nodesIn(callsFor("digraph { a [area=29] b [area=35971] }")),
              QStringList({u"a"_s, u"b"_s}));
    EXPECT_EQ(nodesIn(callsFor("digraph { a [area=28.9] b [area=35971.1] }")),
              QStringList({u"b"_s}));
}

TEST(Sunburst, a_ring_without_items_has_no_width)
{
    // A hundred thousand equal ones: each is dropped until 1241 are left.
    const QStringList calls =
        callsFor("digraph { graph [r1=30] subgraph g { a [area=0] } b [area=0] }");
    EXPECT_EQ(calls.constFirst(), u"begin 68 68"_s);
    EXPECT_EQ(pathsIn(calls).size(), 1); // the disc of the root
}

TEST(Sunburst, equal_slices_fall_out_until_the_rest_can_be_seen)
{
    QByteArray dot = "digraph {";
    for (int i = 0; i < 2000; ++i)
        dot += "n" + QByteArray::number(i) + " [area=1]";
    EXPECT_EQ(pathsIn(callsFor(dot + "}")).size(), 1241); // 360 / 0.29
}

TEST(Sunburst, a_group_without_area_is_dropped_with_all_that_is_in_it)
{
    const auto graph = parseDot("digraph { a [area=1] subgraph g { b [area=0] c [] } }");
    const QStringList calls = callsFor(graph.get());
    EXPECT_EQ(nodesIn(calls), QStringList({u"a"_s}));
    EXPECT_FALSE(calls.contains(u"beginCluster g"_s));
    EXPECT_EQ(sweepOf(graph->findNode(u"a"_s)), 360.0);
}

TEST(Sunburst, a_legend_takes_no_angle_unless_its_nodes_have_areas)
{
    const auto without =
        parseDot("digraph { a [area=1] subgraph l { graph [legend=right] k [label=key] } }");
    callsFor(without.get());
    EXPECT_EQ(sweepOf(without->findNode(u"a"_s)), 360.0);
    const auto with =
        parseDot("digraph { a [area=1] subgraph l { graph [legend=right] k [label=key area=1] } }");
    callsFor(with.get());
    EXPECT_EQ(sweepOf(with->findNode(u"a"_s)), 180.0);
}

TEST(Sunburst, a_legend_alone_is_drawn)
{
    const QStringList calls =
        callsFor("digraph { subgraph l { graph [legend=right] k [label=key] } }");
    EXPECT_EQ(nodesIn(calls), QStringList({u"k"_s}));
    EXPECT_TRUE(pathsIn(calls).isEmpty());
}

TEST(Sunburst, the_order_in_a_ring_is_that_of_the_numbers_in_the_ids)
{
    const auto graph = parseDot("digraph { __N7 [area=1] __N12 [area=5] __N9 [area=2] "
                                "subgraph cluster_8 { x [area=4] } }");
    callsFor(graph.get());
    EXPECT_EQ(own(graph->findNode(u"__N7"_s), u"a0"_s), u"0"_s);
    EXPECT_EQ(own(graph->findSubgraph(u"cluster_8"_s), u"a0"_s), u"30"_s);
    EXPECT_EQ(own(graph->findNode(u"__N9"_s), u"a0"_s), u"150"_s);
    EXPECT_EQ(own(graph->findNode(u"__N12"_s), u"a0"_s), u"210"_s);
}

TEST(Sunburst, slices_fill_the_sweep_of_their_parent)
{
    std::mt19937 random(6);
    std::uniform_int_distribution<int> area(1, 1000);
    for (int round = 0; round < 50; ++round) {
        QByteArray dot = "digraph { graph [a0=30 sweep=" + QByteArray::number(40 + round * 7) + "]";
        for (int group = 0; group < 8; ++group) {
            dot += "subgraph g" + QByteArray::number(group) + " {";
            for (int i = 0; i < 20; ++i)
                dot += "n" + QByteArray::number(group * 100 + i)
                    + " [area=" + QByteArray::number(area(random)) + "]";
            dot += "}";
        }
        const auto graph = parseDot(dot + "}");
        callsFor(graph.get());
        QList<DotSubgraph *> groups = graph->root()->subgraphs;
        groups.append(graph->root());
        for (const DotSubgraph *group : std::as_const(groups)) {
            double filled = 0.0;
            for (const DotSubgraph *child : group->subgraphs)
                filled += sweepOf(child);
            for (const DotNode *node : group->nodes)
                filled += sweepOf(node);
            // Sums of areas have six digits, and so has every sweep.
            EXPECT_NEAR(filled, sweepOf(group), 0.002);
        }
    }
}

TEST(Sunburst, slices_follow_each_other_and_lie_in_their_ring)
{
    const auto graph = parseDot("digraph { graph [rstep=10] subgraph g { a [area=1] b [area=3] "
                                "subgraph h { c [area=4] } } d [area=8] }");
    callsFor(graph.get());
    const DotSubgraph *g = graph->findSubgraph(u"g"_s);
    const DotSubgraph *h = graph->findSubgraph(u"h"_s);
    EXPECT_EQ(own(g, u"a0"_s), u"180"_s); // behind d
    EXPECT_EQ(own(g, u"r1"_s), u"10"_s);
    EXPECT_EQ(own(graph->findNode(u"a"_s), u"a0"_s), u"180"_s);
    EXPECT_EQ(own(graph->findNode(u"b"_s), u"a0"_s), u"202.5"_s);
    EXPECT_EQ(own(h, u"a0"_s), u"270"_s);
    EXPECT_EQ(own(h, u"r0"_s), u"10"_s);
    EXPECT_EQ(own(h, u"r1"_s), u"20"_s);
    EXPECT_EQ(own(graph->findNode(u"c"_s), u"r1"_s), u"30"_s);
}

TEST(Sunburst, a_dropped_element_keeps_a_sweep_that_it_brought_along)
{
    const auto graph = parseDot("digraph { a [area=1] b [sweep=10 r1=50] }");
    EXPECT_EQ(nodesIn(callsFor(graph.get())), QStringList({u"a"_s, u"b"_s}));
}

TEST(Sunburst, the_same_input_gives_the_same_drawing)
{
    QByteArray dot = "digraph {";
    for (int i = 0; i < 300; ++i)
        dot += "n" + QByteArray::number(i) + " [area=" + QByteArray::number(i * i % 977) + "]";
    EXPECT_EQ(callsFor(dot + "}"), callsFor(dot + "}"));
}

TEST(Sunburst, bad_numbers_neither_hang_nor_crash)
{
    for (const QByteArray bad : {"nan", "inf", "\"-inf\"", "\"-3\"", "1e308", "\"-1e308\"", "x"}) {
        for (const QByteArray name : {"sweep", "rstep", "a0", "r0", "r1"})
            EXPECT_EQ(callsFor("digraph { graph [" + name + "=" + bad
                               + "] a [area=1] subgraph g { b [area=2] } }")
                          .constLast(),
                      u"end"_s);
        EXPECT_EQ(callsFor("digraph { a [area=" + bad + "] b [area=1] subgraph g { c [area=" + bad
                           + "] d [area=7] } }")
                      .constLast(),
                  u"end"_s);
    }
}

TEST(Sunburst, an_area_that_is_no_number_leaves_nothing)
{
    EXPECT_TRUE(nodesIn(callsFor("digraph { a [area=nan] b [area=1] }")).isEmpty());
}

TEST(Sunburst, more_than_a_whole_turn_goes_round_again)
{
    const auto graph = parseDot("digraph { graph [sweep=720] a [area=1] b [area=1] }");
    EXPECT_EQ(nodesIn(callsFor(graph.get())).size(), 2);
    EXPECT_EQ(own(graph->findNode(u"b"_s), u"a0"_s), u"360"_s);
}

TEST(Sunburst, draws_a_deep_nest_of_groups)
{
    constexpr int depth = 100000;
    QByteArray dot = "digraph { graph [rstep=1]";
    for (int i = 0; i < depth; ++i)
        dot += "subgraph {";
    dot += "a [area=1]" + QByteArray(depth, '}') + "}";
    const auto graph = parseDot(dot);
    RecordingDevice device(false);
    Sunburst::run({graph.get(), &device});
    EXPECT_EQ(device.calls().constFirst(), u"begin 200010 200010"_s);
    EXPECT_EQ(device.callsOf(u"path"_s).size(), depth + 1);
}
