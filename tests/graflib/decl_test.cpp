#include "layout/graflib/graflib_decl.h"

#include "graflib_support.h"
#include "graph/numbers.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QString sizeOf(const GraflibDrawing &laid, const QString &graphId = {})
{
    return laid.ofGraph(graphId, u"width"_s) + u' ' + laid.ofGraph(graphId, u"height"_s);
}

QString placeOf(const GraflibDrawing &laid, const QString &graphId)
{
    return laid.ofGraph(graphId, u"d1"_s) + u' ' + laid.ofGraph(graphId, u"d2"_s);
}

QString nodePlace(const GraflibDrawing &laid, const QString &id)
{
    return laid.ofNode(id, u"d1"_s) + u' ' + laid.ofNode(id, u"d2"_s);
}

// A graph of the given attributes with one node, a label-less one that is w by h inches large. The
// margin of the graph itself is 0 unless it is set.
QByteArray block(const QByteArray &id, const QByteArray &attributes, double w, double h)
{
    return "subgraph " + id + " { graph [" + attributes + "] node [margin=\""
        + QByteArray::number(w / 2) + "," + QByteArray::number(h / 2) + "\"] n" + id + " [] }\n";
}

GraflibDrawing decl(const QByteArray &rootAttributes, const QByteArray &body)
{
    return runDecl("digraph { graph [" + rootAttributes + "]\n" + body + "}");
}

} // namespace

TEST(DeclMeasure, an_empty_graph_has_its_margins)
{
    const GraflibDrawing laid = decl("margin=\"1,0.5\"", "");
    EXPECT_EQ(sizeOf(laid), u"144 72"_s);
    EXPECT_EQ(laid.beginCall(), u"begin 144 72"_s);
}

TEST(DeclMeasure, pad_is_the_border_of_the_page)
{
    const GraflibDrawing laid = decl("pad=\"0.5,0.25\" margin=1", "");
    EXPECT_EQ(laid.beginCall(), u"begin 216 180"_s);
    EXPECT_EQ(placeOf(laid, {}), u"108 18"_s); // 36 and the margin; 18
}

TEST(DeclMeasure, rankdir_is_always_left_to_right)
{
    const GraflibDrawing laid = decl("rankdir=TB margin=\"1,0.5\"", "");
    EXPECT_EQ(laid.ofGraph({}, u"rankdir"_s), u"LR"_s);
    EXPECT_EQ(laid.beginCall(), u"begin 144 72"_s);
}

TEST(DeclMeasure, stacked_nodes_have_their_heights_and_the_gaps_between)
{
    const GraflibDrawing laid = decl("nodesep=0.25", "node [margin=\"0.5,0.25\"] a [] b [] c []");
    EXPECT_EQ(sizeOf(laid), u"72 144"_s); // 3 * 36 + 2 * 18
    EXPECT_EQ(nodePlace(laid, u"a"_s), u"0 0"_s);
    EXPECT_EQ(nodePlace(laid, u"b"_s), u"0 54"_s);
    EXPECT_EQ(nodePlace(laid, u"c"_s), u"0 108"_s);
}

TEST(DeclMeasure, the_grid_starts_four_points_below_the_last_node)
{
    const GraflibDrawing laid =
        decl("nodesep=0.25", "node [margin=\"0.5,0.25\"] a [] " + block("s", "", 1, 1));
    EXPECT_EQ(sizeOf(laid), u"72 112"_s); // 36 + 4 + 72
    EXPECT_EQ(placeOf(laid, u"s"_s), u"0 40"_s);
}

TEST(DeclMeasure, xoffset_moves_a_node_and_widens_the_stack)
{
    const GraflibDrawing laid = decl("", "node [margin=0.5] a [] b [xoffset=1]");
    EXPECT_EQ(sizeOf(laid), u"144 144"_s);
    EXPECT_EQ(nodePlace(laid, u"b"_s), u"72 72"_s);
}

TEST(DeclMeasure, xoffset_at_the_right_makes_the_measure_smaller_and_still_moves_right)
{
    const GraflibDrawing laid = decl("contentpos=tr", "node [margin=0.5] b [xoffset=0.5]");
    EXPECT_EQ(sizeOf(laid), u"36 72"_s);
    EXPECT_EQ(nodePlace(laid, u"b"_s), u"0 0"_s); // 36 - 72 + 36
}

TEST(DeclGridModes, a_table_takes_the_largest_of_every_row_and_column)
{
    const GraflibDrawing laid =
        decl("nodesep=0.125",
             block("a", "row=0 col=0", 1, 1) + block("b", "row=0 col=1", 2, 0.5)
                 + block("c", "row=1 col=0", 0.5, 2));
    EXPECT_EQ(sizeOf(laid), u"234 234"_s); // 72 + 18 + 144 both ways
    EXPECT_EQ(placeOf(laid, u"a"_s), u"0 0"_s);
    EXPECT_EQ(placeOf(laid, u"b"_s), u"90 0"_s);
    EXPECT_EQ(placeOf(laid, u"c"_s), u"0 90"_s);
}

TEST(DeclGridModes, in_row_mode_every_row_runs_by_itself)
{
    const GraflibDrawing laid =
        decl("nodesep=0.125 grid=row",
             block("a", "row=0 col=0", 1, 1) + block("b", "row=0 col=1", 2, 0.5)
                 + block("c", "row=1 col=0", 0.5, 2) + block("d", "row=1 col=1", 1, 1));
    EXPECT_EQ(sizeOf(laid), u"234 234"_s);
    EXPECT_EQ(placeOf(laid, u"b"_s), u"90 0"_s);
    EXPECT_EQ(placeOf(laid, u"d"_s), u"54 90"_s);
}

TEST(DeclGridModes, in_col_mode_every_column_runs_by_itself)
{
    const GraflibDrawing laid =
        decl("nodesep=0.125 grid=col",
             block("a", "row=0 col=0", 1, 1) + block("b", "row=0 col=1", 2, 0.5)
                 + block("c", "row=1 col=0", 0.5, 2) + block("d", "row=1 col=1", 1, 1));
    EXPECT_EQ(sizeOf(laid), u"234 234"_s);
    EXPECT_EQ(placeOf(laid, u"c"_s), u"0 90"_s);
    EXPECT_EQ(placeOf(laid, u"d"_s), u"90 54"_s);
}

TEST(DeclGridModes, in_row_mode_subgraphs_of_one_row_stand_side_by_side)
{
    const GraflibDrawing laid =
        decl("nodesep=0.125 grid=row",
             block("a", "row=0 col=0", 1, 1) + block("b", "row=0 col=1", 1, 2));
    EXPECT_EQ(sizeOf(laid), u"162 144"_s);
}

// What is measured goes by the row alone, so that both widths count.
TEST(DeclGridModes, two_subgraphs_in_one_cell_overlap)
{
    const GraflibDrawing laid =
        decl("nodesep=0.125 grid=row",
             block("a", "row=0 col=0", 1, 1) + block("b", "row=0 col=0", 1, 2));
    EXPECT_EQ(sizeOf(laid), u"162 144"_s);
    EXPECT_EQ(placeOf(laid, u"a"_s), placeOf(laid, u"b"_s));
}

TEST(DeclGridModes, the_later_of_two_subgraphs_in_one_cell_sets_its_size)
{
    const GraflibDrawing laid =
        decl("",
             block("a", "row=0 col=0", 2, 1) + block("b", "row=0 col=0", 1, 1)
                 + block("c", "row=0 col=1", 1, 1));
    EXPECT_EQ(placeOf(laid, u"c"_s), u"72 0"_s);
}

TEST(DeclGridModes, the_name_of_the_mode_is_exact)
{
    const QByteArray body = block("a", "row=0 col=0", 2, 1) + block("b", "row=0 col=1", 1, 1)
        + block("c", "row=1 col=0", 1, 1) + block("d", "row=1 col=1", 1, 1);
    EXPECT_EQ(placeOf(decl("grid=Row", body), u"d"_s), u"144 72"_s);
    EXPECT_EQ(placeOf(decl("grid=row", body), u"d"_s), u"72 72"_s);
}

TEST(DeclGridModes, the_mode_is_inherited)
{
    const GraflibDrawing laid =
        decl("grid=row",
             "subgraph s { graph [row=0 col=0]" + block("a", "row=0 col=0", 2, 1)
                 + block("b", "row=1 col=0", 1, 1) + block("c", "row=1 col=1", 1, 1) + "}");
    EXPECT_EQ(placeOf(laid, u"c"_s), u"72 72"_s);
}

TEST(DeclGridModes, a_cell_address_is_inherited)
{
    const GraflibDrawing laid = decl("",
                                     "subgraph s { graph [row=3 col=2]" + block("a", "", 1, 1) + "}"
                                         + block("b", "row=0 col=3", 1, 1));
    EXPECT_EQ(placeOf(laid, u"s"_s), u"0 72"_s);
    EXPECT_EQ(placeOf(laid, u"a"_s), u"0 72"_s);
    EXPECT_EQ(placeOf(laid, u"b"_s), u"72 0"_s);
}

TEST(DeclGridModes, a_column_without_width_adds_no_gap_where_it_is_placed)
{
    const GraflibDrawing laid =
        decl("nodesep=0.125",
             block("a", "col=0", 1, 1) + block("b", "col=1", 0, 1) + block("c", "col=2", 1, 1));
    EXPECT_EQ(sizeOf(laid), u"180 72"_s); // the measure has both gaps
    EXPECT_EQ(placeOf(laid, u"b"_s), u"90 0"_s);
    EXPECT_EQ(placeOf(laid, u"c"_s), u"90 0"_s);
}

TEST(DeclGridModes, a_cell_that_does_not_read_is_cell_zero)
{
    const GraflibDrawing laid =
        decl("",
             block("a", "row=x col=1.5", 1, 1) + block("b", "row=0 col=1", 1, 1)
                 + block("c", "row=99999999999 col=1", 1, 1));
    EXPECT_EQ(placeOf(laid, u"a"_s), u"0 0"_s);
    EXPECT_EQ(placeOf(laid, u"c"_s), u"72 0"_s);
}

TEST(DeclGridModes, a_huge_address_is_placed_like_the_next_one)
{
    for (const char *grid : {"row", "col", ""}) {
        const QByteArray mode = "grid=\"" + QByteArray(grid) + "\" nodesep=0.125";
        const GraflibDrawing huge = decl(mode,
                                         block("a", "row=0 col=0", 1, 1)
                                             + block("b", "row=2000000000 col=2147483647", 2, 1));
        const GraflibDrawing next =
            decl(mode, block("a", "row=0 col=0", 1, 1) + block("b", "row=1 col=1", 2, 1));
        EXPECT_EQ(huge.result, QString());
        EXPECT_EQ(placeOf(huge, u"b"_s), placeOf(next, u"b"_s)) << grid;
        EXPECT_EQ(sizeOf(huge), sizeOf(next)) << grid;
    }
}

TEST(DeclGridModes, a_negative_address_is_refused)
{
    for (const char *address : {"row=\"-1\"", "col=\"-1\"", "col=\"-2147483648\""}) {
        const GraflibDrawing laid = decl("", block("s", address, 1, 1));
        EXPECT_EQ(laid.result, u"Negative row or col in a declaration grid\n"_s) << address;
        EXPECT_TRUE(laid.device->calls().isEmpty());
    }
}

TEST(DeclGridModes, the_address_of_the_root_counts_only_for_what_inherits_it)
{
    EXPECT_EQ(decl("row=\"-1\"", "a []").result, QString());
    EXPECT_NE(decl("row=\"-1\"", block("s", "", 1, 1)).result, QString());
}

TEST(DeclEdgeRoom, an_edge_costs_16_points_in_every_column_gap_of_its_graph)
{
    const QByteArray cells =
        block("a", "col=0", 1, 1) + block("b", "col=1", 1, 1) + block("c", "col=2", 1, 1);
    const QByteArray stack = "node [margin=0] x [] y [] ";
    EXPECT_EQ(decl("nodesep=0.125", stack + cells).ofGraph({}, u"width"_s), u"252"_s);
    const GraflibDrawing laid = decl("nodesep=0.125", stack + "x -> y [] " + cells);
    EXPECT_EQ(laid.ofGraph({}, u"width"_s), u"284"_s);
    EXPECT_EQ(laid.ofGraph(u"b"_s, u"d1"_s), u"106"_s);
    EXPECT_EQ(laid.ofGraph(u"c"_s, u"d1"_s), u"212"_s);
}

TEST(DeclEdgeRoom, an_edge_between_the_first_columns_gives_more_room_behind_the_first)
{
    const QByteArray cells = block("a", "row=0 col=0", 1, 1) + block("b", "row=0 col=1", 1, 1)
        + block("c", "row=0 col=2", 1, 1);
    const GraflibDrawing laid = decl("", cells + "na -> nb []");
    EXPECT_EQ(laid.ofGraph({}, u"width"_s), u"264"_s); // 3 * 72 + 2 * 16 + 16
    EXPECT_EQ(laid.ofGraph(u"b"_s, u"d1"_s), u"104"_s);
    EXPECT_EQ(laid.ofGraph(u"c"_s, u"d1"_s), u"192"_s);
}

TEST(DeclEdgeRoom, the_cells_between_which_an_edge_runs_are_compared_as_texts)
{
    const auto width = [](const QByteArray &first, const QByteArray &second,
                          const QByteArray &edge) {
        return decl("", block("a", first, 1, 1) + block("b", second, 1, 1) + edge)
            .ofGraph({}, u"width"_s);
    };
    EXPECT_EQ(width("row=0 col=0", "row=0 col=1", "na -> nb []"), u"176"_s);
    EXPECT_EQ(width("row=0 col=0", "row=0 col=1", "nb -> na []"), u"176"_s);
    EXPECT_EQ(width("row=5 col=0", "row=0 col=1", "na -> nb []"), u"176"_s);
    EXPECT_EQ(width("row=0 col=00", "row=0 col=1", "na -> nb []"), u"160"_s);
    EXPECT_EQ(width("row=0", "row=0 col=1", "na -> nb []"), u"160"_s);
    EXPECT_EQ(width("row=0 col=0", "row=1 col=1", "na -> nb []"), u"160"_s);
    EXPECT_EQ(width("row=0 col=0", "row=0 col=1", ""), u"144"_s);
}

TEST(DeclMargin, moves_the_sides_and_not_the_top)
{
    const GraflibDrawing laid =
        decl("", "subgraph s { graph [margin=\"0.5,0.25\"] node [margin=0.5] a [] }");
    EXPECT_EQ(sizeOf(laid, u"s"_s), u"144 108"_s);
    EXPECT_EQ(nodePlace(laid, u"a"_s), u"36 0"_s);
    EXPECT_EQ(placeOf(laid, u"s"_s), u"36 0"_s);
}

TEST(DeclMargin, a_graph_with_subgraphs_gets_the_width_that_it_fills)
{
    const GraflibDrawing laid =
        decl("", "subgraph s { graph [margin=0.5]" + block("t", "margin=0", 1, 1) + "}");
    EXPECT_EQ(sizeOf(laid, u"s"_s), u"72 144"_s);
    EXPECT_EQ(sizeOf(laid, u"t"_s), u"72 72"_s);
}

TEST(DeclMargin, without_subgraphs_the_measured_width_stays)
{
    const GraflibDrawing laid =
        decl("", "subgraph s { graph [margin=0.5] node [margin=0.5] a [] }");
    EXPECT_EQ(sizeOf(laid, u"s"_s), u"144 144"_s);
}

namespace {

// A cell of 1 by 1 inch next to one of 4 by 4, in a row and a column of that size.
QString placedWith(const QByteArray &contentPos, const QString &what)
{
    const GraflibDrawing laid =
        decl("",
             block("big", "row=0 col=1", 4, 4) + block("wide", "row=1 col=0", 4, 1)
                 + block("s", "row=0 col=0 contentpos=\"" + contentPos + "\"", 1, 1));
    return what == u"graph"_s ? placeOf(laid, u"s"_s) : nodePlace(laid, u"ns"_s);
}

} // namespace

TEST(DeclContentPosition, first_letter_is_vertical_and_second_horizontal)
{
    EXPECT_EQ(placedWith("", u"graph"_s), u"0 0"_s);
    EXPECT_EQ(placedWith("tl", u"graph"_s), u"0 0"_s);
    EXPECT_EQ(placedWith("mc", u"graph"_s), u"108 108"_s);
    EXPECT_EQ(placedWith("br", u"graph"_s), u"216 216"_s);
    EXPECT_EQ(placedWith("xx", u"graph"_s), u"0 0"_s);
}

TEST(DeclContentPosition, nodes_follow_the_rectangle)
{
    EXPECT_EQ(placedWith("mc", u"node"_s), u"108 108"_s);
    EXPECT_EQ(placedWith("br", u"node"_s), u"216 216"_s);
}

TEST(DeclContentPosition, a_single_letter_is_the_vertical_one)
{
    EXPECT_EQ(placedWith("b", u"graph"_s), u"0 216"_s);
    EXPECT_EQ(placedWith("r", u"graph"_s), u"0 0"_s);
    EXPECT_EQ(placedWith("bcx", u"graph"_s), u"0 216"_s);
}

TEST(DeclDrawing, clusters_frame_what_is_in_them)
{
    const GraflibDrawing laid = decl("pad=0.5",
                                     "subgraph s { graph [color=red margin=0.25] node [margin=0.5 "
                                     "shape=rectangle] a [] }");
    EXPECT_EQ(laid.device->callsOf(u"rect"_s),
              (QStringList{u"rect 54,36 162,144 radius 0 pen red solid 1 fill #FFFFFF"_s,
                           u"rect 54,36 126,108 radius 0 pen #000000 solid 1 fill #FFFFFF"_s}));
}

TEST(DeclDrawing, the_message_of_the_device_is_the_result)
{
    const auto graph = parsed("digraph { }");
    RecordingDevice device;
    device.setResult(u"Disk full\n"_s);
    EXPECT_EQ(Layout::GraflibDecl::run({graph.get(), &device}), u"Disk full\n"_s);
}

TEST(DeclDrawing, positions_are_kept_with_six_digits)
{
    const GraflibDrawing laid = decl("pad=\"17146.1234,0.1234567\"", "");
    EXPECT_EQ(placeOf(laid, {}), u"1.23452e+06 8.88888"_s);
}

// Every graph stands in a cell of its parent's grid: the places of siblings share no point within.
TEST(DeclProperties, cells_of_a_random_table_stay_apart_and_within_their_parent)
{
    RandomNumbers random(31);
    for (int round = 0; round < 50; ++round) {
        QByteArray body;
        QList<QString> ids;
        for (int i = 0; i < 12; ++i) {
            const QByteArray id = "s" + QByteArray::number(i);
            ids.append(QString::fromLatin1(id));
            body +=
                block(id, "row=" + QByteArray::number(i / 4) + " col=" + QByteArray::number(i % 4),
                      0.2 + random.below(20) / 10.0, 0.2 + random.below(20) / 10.0);
        }
        const char *modes[] = {"row", "col", ""};
        const GraflibDrawing laid =
            decl("nodesep=0.1 pad=0.2 grid=\"" + QByteArray(modes[round % 3]) + "\"", body);
        const auto rectOf = [&](const QString &id) {
            return QRectF(
                laid.ofGraph(id, u"d1"_s).toDouble(), laid.ofGraph(id, u"d2"_s).toDouble(),
                laid.ofGraph(id, u"width"_s).toDouble(), laid.ofGraph(id, u"height"_s).toDouble());
        };
        const QRectF page = rectOf({}).adjusted(-0.01, -0.01, 0.01, 0.01);
        for (int i = 0; i < ids.size(); ++i) {
            EXPECT_TRUE(page.contains(rectOf(ids[i])))
                << ids[i].toStdString() << " round " << round;
            for (int k = 0; k < i; ++k)
                EXPECT_FALSE(rectOf(ids[i]).intersects(rectOf(ids[k]))) << round;
        }
    }
}

TEST(DeclBadInput, numbers_beyond_all_measure_end_in_a_drawing)
{
    for (const char *size : {"1e308", "-1e308", "nan", "inf"}) {
        for (const char *grid : {"row", "col", ""}) {
            const QByteArray value = "\"" + QByteArray(size) + "\"";
            const GraflibDrawing laid =
                decl("pad=" + value + " margin=" + value + " nodesep=" + value + " grid=\"" + grid
                         + "\" contentpos=mc color=red",
                     "node [shape=oval margin=" + value + " xoffset=" + value + "] a [] b [] "
                         + "edge [arrowhead=normal] " + block("s", "col=0 row=0", 1, 1)
                         + block("t", "col=1 row=0", 1, 1) + "a -> b [] ns -> nt []");
            EXPECT_EQ(laid.result, QString()) << size;
            EXPECT_EQ(laid.device->callsOf(u"polyline"_s).size(), 2) << size;
        }
    }
}

TEST(DeclBadInput, nesting_100000_deep_is_laid_out)
{
    const int depth = 100'000;
    const auto graph = parsed("digraph { graph [nodesep=0.1 margin=0.001]"
                              + QByteArray("subgraph {").repeated(depth) + "a []"
                              + QByteArray("}").repeated(depth) + "}");
    SilentDevice device;
    EXPECT_EQ(Layout::GraflibDecl::run({graph.get(), &device}), QString());
    EXPECT_EQ(graph->nodeAttribute(graph->findNode(u"a"_s), u"d1"_s), u"7200.07"_s);
}
