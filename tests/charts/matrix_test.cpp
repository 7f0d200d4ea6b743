#include "device/text_image.h"
#include "graph/dot_parser.h"
#include "layout/charts/matrix_layout.h"
#include "support/golden.h"
#include "support/recording_device.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include <algorithm>
#include <random>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

const QString goldens = QStringLiteral(ORR_TEST_FOLDER "/goldens/matrix_");

QStringList callsFor(DotGraph *graph)
{
    RecordingDevice device;
    EXPECT_EQ(MatrixLayout::run({graph, &device}), QString());
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

QStringList rectsIn(const QStringList &calls)
{
    return calls.filter(QRegularExpression(u"^rect "_s));
}

QString own(const DotObject *object, const QString &name)
{
    return object->attributes.value(name);
}

QSize sizeOf(const QString &label)
{
    RecordingDevice device;
    return TextImage::textSize(label, device.defaultFont(), false);
}

} // namespace

TEST(Matrix, an_empty_graph_is_a_margin)
{
    EXPECT_EQ(callsFor("digraph {}"), QStringList({u"begin 8 8"_s, u"end"_s}));
}

TEST(Matrix, without_labels_squares_have_no_size)
{
    EXPECT_EQ(callsFor("digraph { a [] b [] a -> b [] }"),
              QStringList({u"begin 16 16"_s, u"beginNode a"_s, u"endNode"_s, u"beginNode b"_s,
                           u"endNode"_s, u"beginEdge a->b"_s,
                           u"rect 10,6 10,6 radius 0 pen #000000 solid 1 fill #000000"_s,
                           u"endEdge"_s, u"connect a->b a b"_s, u"end"_s}));
}

TEST(Matrix, groups_on_both_axes_have_brackets)
{
    const auto graph = parseDot("digraph {\n"
                                "subgraph cluster_1 { graph [axis=x label=columns]\n"
                                "  __N2 [label=one] __N3 [label=two] }\n"
                                "subgraph cluster_4 { graph [axis=y label=rows]\n"
                                "  __N5 [label=first] __N6 [label=second] }\n"
                                "edge [color=red]\n"
                                "__N5 -> __N3 [label=x] __N6 -> __N2 [] }");
    RecordingDevice device;
    MatrixLayout::run({graph.get(), &device});
    EXPECT_TRUE(matchesGolden(device.log().toUtf8(), goldens + u"groups.txt"_s));
}

TEST(Matrix, a_node_outside_of_any_axis_is_column_and_row_with_one_label)
{
    const auto graph = parseDot("digraph { __N1 [label=a] __N2 [label=b] __N2 -> __N1 [] }");
    const QStringList calls = callsFor(graph.get());
    EXPECT_EQ(own(graph->findNode(u"__N2"_s), u"x"_s), u"1"_s);
    EXPECT_EQ(own(graph->findNode(u"__N2"_s), u"y"_s), u"1"_s);
    EXPECT_EQ(calls.filter(u"text"_s).size(), 2);
    // The label stands at the row: left of column 0.
    const QSize size = sizeOf(u"a"_s);
    const int cell = size.height() + 4;
    const int xOrigin = std::max(size.width(), sizeOf(u"b"_s).width()) + 8;
    EXPECT_EQ(calls.at(0), u"begin %1 %2"_s.arg(2 * cell + 4 + xOrigin).arg(2 * cell + 8));
    EXPECT_TRUE(calls.contains(
        u"text %1,%2 \"a\" Arial 12 #000000"_s.arg(xOrigin - size.width() - 4).arg(4 + 2)));
}

TEST(Matrix, column_headers_lie_and_make_the_squares_as_wide_as_they_are)
{
    const QSize size = sizeOf(u"a wide header"_s);
    const QStringList calls =
        callsFor("digraph { graph [axis=x] a [label=\"a wide header\"] b [] }");
    EXPECT_EQ(calls.at(0),
              u"begin %1 %2"_s.arg(2 * (size.width() + 4) + 8).arg(4 + size.height() + 8));
}

TEST(Matrix, row_headers_make_room_at_the_left)
{
    const QSize size = sizeOf(u"a wide header"_s);
    const QStringList calls =
        callsFor("digraph { graph [axis=y] a [label=\"a wide header\"] b [] }");
    EXPECT_EQ(calls.at(0),
              u"begin %1 %2"_s.arg(4 + size.width() + 8).arg(2 * (size.height() + 4) + 8));
}

TEST(Matrix, a_label_of_an_edge_fits_into_its_square)
{
    const QSize size = sizeOf(u"wider than it is high"_s);
    const QStringList calls =
        callsFor("digraph { a [] b [] a -> b [label=\"wider than it is high\"] }");
    const int cell = size.width() + 4;
    ASSERT_EQ((cell - size.height()) % 2, 1); // so that half a point is cut
    EXPECT_EQ(calls.at(0), u"begin %1 %1"_s.arg(2 * cell + 8));
    EXPECT_TRUE(
        calls.contains(u"text %1,%2 \"wider than it is high\" Arial 12 #000000"_s.arg(4 + cell + 2)
                           .arg((cell - size.height() - 4) / 2 + 6)));
}

TEST(Matrix, the_label_of_a_column_group_fits_over_its_columns)
{
    const QString label = u"group of three columns"_s;
    const QSize size = sizeOf(label);
    ASSERT_EQ(size.width() % 3, 0); // one more for each column even so
    const auto graph = parseDot("digraph { subgraph g { graph [axis=x label=\"" + label.toUtf8()
                                + "\"] a [] b [] c [] } }");
    const QStringList calls = callsFor(graph.get());
    const int cell = size.width() / 3 + 1 + 4;
    EXPECT_EQ(calls.at(0), u"begin %1 %2"_s.arg(3 * cell + 8).arg(4 + size.height() + 8));
    EXPECT_EQ(own(graph->findSubgraph(u"g"_s), u"yshift"_s), u"0"_s);
    EXPECT_TRUE(own(graph->findSubgraph(u"g"_s), u"xshift"_s).isNull());
}

TEST(Matrix, the_label_of_a_row_group_fits_beside_its_rows)
{
    const QSize size = sizeOf(u"a\nb\nc"_s);
    const auto graph =
        parseDot("digraph { subgraph g { graph [axis=y label=\"a\\nb\\nc\"] a [] b [] } }");
    const QStringList calls = callsFor(graph.get());
    const int cell = size.height() / 2 + 1 + 4;
    EXPECT_EQ(calls.at(0), u"begin %1 %2"_s.arg(4 + size.width() + 8).arg(2 * cell + 8));
}

TEST(Matrix, a_group_without_columns_shifts_nothing_and_shows_no_label)
{
    const QSize size = sizeOf(u"nothing"_s);
    const auto graph =
        parseDot("digraph { subgraph g { graph [axis=x label=nothing] } a [label=a] }");
    const QStringList calls = callsFor(graph.get());
    const DotSubgraph *group = graph->findSubgraph(u"g"_s);
    EXPECT_TRUE(own(group, u"xshift"_s).isNull());
    EXPECT_TRUE(own(group, u"yshift"_s).isNull());
    EXPECT_TRUE(calls.filter(u"nothing"_s).isEmpty());
    EXPECT_GT(size.width(), 0);
}

TEST(Matrix, brackets_of_nested_groups_pile_up_outward)
{
    const QSize size = sizeOf(u"inner"_s);
    const auto graph = parseDot("digraph { graph [axis=x] subgraph outer { graph [label=outer] "
                                "subgraph inner { graph [label=inner] a [] b [] } } }");
    callsFor(graph.get());
    EXPECT_EQ(own(graph->findSubgraph(u"inner"_s), u"yshift"_s), u"0"_s);
    EXPECT_EQ(own(graph->findSubgraph(u"outer"_s), u"yshift"_s),
              QString::number(size.height() + 4));
}

TEST(Matrix, the_label_of_the_root_takes_room_but_is_not_drawn)
{
    const QSize size = sizeOf(u"a title of the root"_s);
    const auto graph = parseDot("digraph { graph [label=\"a title of the root\"] a [] }");
    const QStringList calls = callsFor(graph.get());
    EXPECT_TRUE(calls.filter(u"text"_s).isEmpty());
    EXPECT_EQ(calls.at(0),
              u"begin %1 %2"_s.arg(size.height() + 1 + 4 + 4 + size.width() + 8)
                  .arg(size.height() + 1 + 4 + 8));
}

TEST(Matrix, a_group_with_columns_and_rows_has_a_rectangle)
{
    const QStringList calls =
        callsFor("digraph { subgraph g { graph [fillcolor=red] a [] b [] } c [] }");
    EXPECT_EQ(rectsIn(calls),
              QStringList({u"rect 8,8 16,16 radius 0 pen black solid 1 fill red"_s}));
}

TEST(Matrix, a_group_of_columns_or_of_rows_alone_has_no_rectangle)
{
    EXPECT_TRUE(rectsIn(callsFor("digraph { subgraph g { graph [axis=x] a [] } "
                                 "subgraph h { graph [axis=y] b [] } }"))
                    .isEmpty());
}

TEST(Matrix, an_invisible_group_keeps_its_label_and_bracket)
{
    const QStringList calls =
        callsFor("digraph { subgraph g { graph [label=g style=\"x invisible\"] a [] } }");
    EXPECT_TRUE(rectsIn(calls).isEmpty());
    EXPECT_EQ(calls.filter(QRegularExpression(u"^polyline "_s)).size(), 2);
    EXPECT_EQ(calls.filter(u"text"_s).size(), 1);
}

TEST(Matrix, headers_come_in_the_order_of_the_numbers_in_the_ids)
{
    const auto graph = parseDot("digraph { __N7 [] __N12 [] subgraph cluster_9 { b [] a [] } }");
    callsFor(graph.get());
    EXPECT_EQ(own(graph->findNode(u"__N7"_s), u"x"_s), u"0"_s);
    EXPECT_EQ(own(graph->findNode(u"a"_s), u"x"_s), u"1"_s);
    EXPECT_EQ(own(graph->findNode(u"b"_s), u"x"_s), u"2"_s);
    EXPECT_EQ(own(graph->findNode(u"__N12"_s), u"x"_s), u"3"_s);
    const DotSubgraph *group = graph->findSubgraph(u"cluster_9"_s);
    EXPECT_EQ(own(group, u"x0"_s), u"1"_s);
    EXPECT_EQ(own(group, u"x1"_s), u"3"_s);
    EXPECT_EQ(own(group, u"y0"_s), u"1"_s);
    EXPECT_EQ(own(group, u"y1"_s), u"3"_s);
}

TEST(Matrix, every_edge_lies_in_the_cell_of_its_ends)
{
    std::mt19937 random(7);
    QByteArray dot = "digraph { subgraph c { graph [axis=x] ";
    for (int i = 0; i < 60; ++i)
        dot += "x" + QByteArray::number(i) + " [label=m]";
    dot += "} subgraph r { graph [axis=y] ";
    for (int i = 0; i < 60; ++i)
        dot += "y" + QByteArray::number(i) + " [label=m]";
    dot += "}";
    for (int i = 0; i < 500; ++i)
        dot += "y" + QByteArray::number(random() % 60) + " -> x" + QByteArray::number(random() % 60)
            + " []";
    const auto graph = parseDot(dot + "}");
    const QStringList rects = rectsIn(callsFor(graph.get()));
    const QSize size = sizeOf(u"m"_s);
    const int cell = std::max(size.width(), size.height()) + 4;
    ASSERT_EQ(rects.size(), graph->root()->edges.size());
    for (qsizetype i = 0; i < rects.size(); ++i) {
        const DotEdge *edge = graph->root()->edges.at(i);
        const int left = own(edge->head, u"x"_s).toInt() * cell + size.width() + 8 + 2;
        const int top = own(edge->tail, u"y"_s).toInt() * cell + size.height() + 8 + 2;
        EXPECT_TRUE(rects.at(i).startsWith(
            u"rect %1,%2 %3,%4 "_s.arg(left).arg(top).arg(left + cell - 4).arg(top + cell - 4)))
            << rects.at(i).toStdString();
    }
}

TEST(Matrix, an_edge_without_column_or_row_lies_in_the_first)
{
    // From a column to a row: neither has the number that is asked for.
    const QStringList rects =
        rectsIn(callsFor("digraph { subgraph c { graph [axis=x] a [] b [] } "
                         "subgraph r { graph [axis=y] c [] d [] } b -> d [] }"));
    EXPECT_EQ(rects, QStringList({u"rect 6,6 6,6 radius 0 pen #000000 solid 1 fill #000000"_s}));
}

TEST(Matrix, an_axis_goes_down_to_groups_within)
{
    const auto graph = parseDot(
        "digraph { graph [axis=x] subgraph g { a [] subgraph h { graph [axis=z] b [] } } }");
    callsFor(graph.get());
    EXPECT_TRUE(own(graph->findNode(u"a"_s), u"y"_s).isNull());
    EXPECT_EQ(own(graph->findNode(u"b"_s), u"x"_s), u"1"_s);
    EXPECT_EQ(own(graph->findNode(u"b"_s), u"y"_s), u"0"_s); // neither "x" nor "y" means both
}

TEST(Matrix, positions_that_the_input_brings_along_count)
{
    const QSize size = sizeOf(u"m"_s);
    const QStringList calls = callsFor("digraph { graph [axis=x] a [label=m y=2] }");
    // A column with a row number of its own is a row header.
    const int cell = size.width() + 4;
    EXPECT_EQ(calls.filter(u"text"_s),
              QStringList({u"text %1,%2 \"m\" Arial 12 #000000"_s.arg(4 - size.width() - 4)
                               .arg((cell - size.height()) / 2 + size.height() + 8 + 2 * cell)}));
}

TEST(Matrix, huge_positions_neither_overflow_nor_crash)
{
    for (const QByteArray huge : {"2147483647", "\"-2147483648\"", "1e308", "nan", "x"}) {
        const QStringList calls =
            callsFor("digraph { subgraph g { graph [label=g xshift=" + huge + " yshift=" + huge
                     + " axis=x] a [label=wide x=" + huge + " y=" + huge + "] } node [x=" + huge
                     + " y=" + huge + "] b [] a -> b [] b -> a [] }");
        EXPECT_EQ(rectsIn(calls).size(), 2) << huge.toStdString();
    }
}

TEST(Matrix, the_same_input_gives_the_same_drawing)
{
    const QByteArray dot = "digraph { subgraph g { b [label=b] a [label=a] } b -> a [] a -> b [] }";
    EXPECT_EQ(callsFor(dot), callsFor(dot));
}

TEST(Matrix, draws_a_deep_nest_of_groups)
{
    constexpr int depth = 100000;
    QByteArray dot = "digraph {";
    for (int i = 0; i < depth; ++i)
        dot += "subgraph {";
    dot += "a [label=a] a -> a []" + QByteArray(depth, '}') + "}";
    const auto graph = parseDot(dot);
    RecordingDevice device(false);
    MatrixLayout::run({graph.get(), &device});
    EXPECT_EQ(rectsIn(device.calls()).size(), depth + 1);
}
