#include "layout/graflib/decl_edges.h"

#include "graflib_support.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// A cluster at a cell with one node of a given place; nodes are 40 by 20.
QByteArray at(const QByteArray &id, int row, int col, int x, int y)
{
    const auto number = [](int value) { return '"' + QByteArray::number(value) + '"'; };
    return "subgraph c" + id + " { graph [row=" + number(row) + " col=" + number(col)
        + " d1=" + number(x - 5) + " d2=" + number(y - 5) + " width=50] " + id + " [d1=" + number(x)
        + " d2=" + number(y) + "] }\n";
}

// The two texts of the edge between two nodes of a placed graph.
QString routed(const QByteArray &body, const QString &tail = u"a"_s, const QString &head = u"b"_s)
{
    const auto graph = parsed("digraph { node [width=40 height=20]\n" + body + "}");
    Layout::routeEdges(graph.get(), graph->root());
    const DotEdge *edge = graph->takeEdge(graph->findNode(tail), graph->findNode(head));
    return graph->edgeAttribute(edge, u"d1"_s) + u" / "_s + graph->edgeAttribute(edge, u"d2"_s);
}

} // namespace

TEST(DeclEdges, to_the_right_run_from_side_to_side)
{
    EXPECT_EQ(routed("a [d1=0 d2=0] b [d1=100 d2=50] a -> b []"), u"40 70 70 100 / 10 10 60 60"_s);
}

TEST(DeclEdges, to_the_left_run_from_side_to_side)
{
    EXPECT_EQ(routed("a [d1=100 d2=0] b [d1=0 d2=50] a -> b []"), u"100 70 70 40 / 10 10 60 60"_s);
}

TEST(DeclEdges, between_ends_in_line_are_a_loop_15_points_out_to_the_left)
{
    EXPECT_EQ(routed("a [d1=50 d2=0] b [d1=50 d2=50] a -> b []"), u"50 35 35 50 / 10 10 60 60"_s);
    EXPECT_EQ(routed("a [d1=50 d2=0] b [d1=54 d2=50] a -> b []"), u"50 35 35 54 / 10 10 60 60"_s);
    EXPECT_EQ(routed("a [d1=54 d2=0] b [d1=50 d2=50] a -> b []"), u"54 39 39 50 / 10 10 60 60"_s);
}

TEST(DeclEdges, between_ends_more_than_four_points_apart_are_none)
{
    EXPECT_EQ(routed("a [d1=50 d2=0] b [d1=54.5 d2=50] a -> b []"),
              u"90 72.25 72.25 54.5 / 10 10 60 60"_s);
}

TEST(DeclEdges, a_loop_runs_like_any_other)
{
    EXPECT_EQ(routed("a [d1=50 d2=0] a -> a []", u"a"_s, u"a"_s), u"50 35 35 50 / 10 10 10 10"_s);
}

TEST(DeclEdges, nodes_of_one_stack_meet_in_a_loop_unless_their_offsets_differ)
{
    const auto line = [](const QByteArray &offset) {
        const GraflibDrawing laid =
            runDecl("digraph { node [margin=0.5] a [] b [xoffset=\"" + offset + "\"] a -> b [] }");
        return laid.ofEdge(u"a"_s, u"b"_s, u"d1"_s);
    };
    EXPECT_EQ(line("0.05"), u"0 -15 -15 3.6"_s);
    EXPECT_EQ(line("0.1"), u"72 39.6 39.6 7.2"_s);
}

TEST(DeclEdges, cluster_ends_are_three_points_below_its_top)
{
    EXPECT_EQ(routed(at("a", 5, 0, 0, 0) + at("b", 5, 1, 100, 50) + "a -> b [lhead=cb]"),
              u"40 67.5 67.5 95 / 10 10 48 48"_s);
    EXPECT_EQ(routed(at("a", 5, 0, 0, 0) + at("b", 5, 1, 100, 50) + "a -> b [ltail=ca]"),
              u"45 72.5 72.5 100 / -2 -2 60 60"_s);
}

TEST(DeclEdges, a_name_that_names_nothing_means_the_node)
{
    const QString plain = u"40 70 70 100 / 10 10 60 60"_s;
    EXPECT_EQ(routed("a [d1=0 d2=0] b [d1=100 d2=50] a -> b [ltail=nothing lhead=\"\"]"), plain);
    EXPECT_EQ(routed("a [d1=0 d2=0] b [d1=100 d2=50] a -> b [ltail=name lhead=name]"), plain);
}

// Each end takes the offset of the other end's cell.
TEST(DeclEdges, the_first_cell_in_use_has_lane_0_and_the_second_lane_6)
{
    EXPECT_EQ(routed(at("a", 0, 0, 0, 0) + at("b", 1, 0, 100, 50) + "a -> b []"),
              u"40 70 70 100 / 16 16 60 60"_s);
}

TEST(DeclEdges, the_primary_lanes_are_handed_out_in_their_order)
{
    const QByteArray body = at("a", 0, 0, 0, 0) + at("b", 0, 1, 100, 50) + at("c", 1, 0, 0, 50)
        + "a -> b [] a -> c [] b -> c []";
    EXPECT_EQ(routed(body, u"a"_s, u"b"_s), u"40 70 70 100 / 10 10 66 66"_s);
    EXPECT_EQ(routed(body, u"a"_s, u"c"_s), u"0 -15 -15 0 / 22 22 66 66"_s);
    EXPECT_EQ(routed(body, u"b"_s, u"c"_s), u"100 70 70 40 / 72 72 60 60"_s);
}

TEST(DeclEdges, the_secondary_lanes_count_from_zero_again)
{
    const QByteArray body = at("a", 0, 1, 0, 0) + at("b", 0, 2, 100, 50) + at("c", 1, 2, 100, 90)
        + "a -> b [] a -> c []";
    EXPECT_EQ(routed(body, u"a"_s, u"b"_s), u"40 70 70 100 / 10 10 60 60"_s);
    EXPECT_EQ(routed(body, u"a"_s, u"c"_s), u"40 70 70 100 / 16 16 100 100"_s);
}

TEST(DeclEdges, any_other_cell_has_lane_0)
{
    EXPECT_EQ(routed(at("a", 0, 1, 0, 0) + at("b", 2, 0, 100, 50) + at("c", 0, 0, 0, 90)
                         + "a -> b [] c -> b []",
                     u"c"_s, u"b"_s),
              u"40 70 70 100 / 100 100 66 66"_s);
}

TEST(DeclEdges, two_edges_between_the_same_cells_share_a_lane)
{
    const QByteArray body = at("a", 0, 0, 0, 0) + at("b", 1, 0, 100, 50) + "a -> b [] a -> b []";
    const auto graph = parsed("digraph { node [width=40 height=20]\n" + body + "}");
    Layout::routeEdges(graph.get(), graph->root());
    const QList<DotEdge *> edges = graph->root()->edges;
    ASSERT_EQ(edges.size(), 2);
    EXPECT_EQ(edges[0]->attributes, edges[1]->attributes);
}

TEST(DeclEdges, the_lane_goes_by_the_owner_of_the_node_and_not_by_ltail)
{
    EXPECT_EQ(routed(at("a", 0, 0, 0, 0) + at("b", 1, 0, 100, 50) + at("x", 0, 1, 200, 200)
                     + "a -> b [ltail=cx]"),
              u"195 167.5 167.5 140 / 204 204 60 60"_s);
}

TEST(DeclEdges, the_graph_itself_takes_part_in_the_lanes)
{
    // It has no cell of its own, which reads as cell 0, 0: lane 0, and the cluster at 1, 0 lane 6.
    EXPECT_EQ(routed("a [d1=0 d2=0] " + at("b", 1, 0, 100, 50) + "a -> b []"),
              u"40 70 70 100 / 16 16 60 60"_s);
}

TEST(DeclEdges, a_later_owner_at_the_same_cell_takes_the_lane)
{
    EXPECT_EQ(routed(at("x", 0, 1, 0, 0) + at("a", 0, 0, 0, 0) + at("b", 0, 0, 100, 50)
                     + "x -> b [] a -> b []"),
              u"40 70 70 100 / 10 10 66 66"_s);
}

TEST(DeclEdges, of_nested_graphs_are_routed_too)
{
    EXPECT_EQ(routed("subgraph s { subgraph t { a [d1=0 d2=0] b [d1=100 d2=50] a -> b [] } }"),
              u"40 70 70 100 / 10 10 60 60"_s);
}
