#include "device/text_image.h"
#include "graflib_support.h"
#include "graph/numbers.h"
#include "layout/graflib/expander.h"
#include "layout/graflib/graph_drawing.h"
#include "layout/graflib/node_size.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QString draw(DotGraph *graph, RecordingDevice &device, QSizeF size)
{
    const GraphStyle style(graph, &device);
    Layout::NodeLabels labels(style);
    return Layout::drawGraph({graph, &device}, style, labels, size);
}

// What one node becomes whose place and size are given. `attributes` are its own.
QStringList drawn(const QByteArray &attributes, const QByteArray &root = "rankdir=LR",
                  bool withExpanders = false)
{
    const auto graph = parsed("digraph { graph [" + root + "] a [" + attributes + "] }");
    RecordingDevice device(false, withExpanders);
    draw(graph.get(), device, {100, 50});
    QStringList calls = device.calls();
    calls.removeAll(u"endNode"_s);
    return calls.sliced(1, calls.size() - 2); // without begin and end
}

constexpr auto solid = " pen #000000 solid 1 fill #FFFFFF";
constexpr auto hollow = " pen #000000 solid 1 fill none";

QStringList lines(std::initializer_list<const char *> texts)
{
    QStringList list;
    for (const char *text : texts)
        list += QString::fromUtf8(text);
    return list;
}

// The measured size of a node with these attributes, in a graph with font size 12.
QString measured(const QByteArray &attributes, double marginX = 0, double marginY = 0)
{
    const auto graph = parsed("digraph { a [" + attributes + "] }");
    RecordingDevice device;
    const GraphStyle style(graph.get(), &device);
    Layout::NodeLabels labels(style);
    Layout::measureNodes(graph.get(), graph->root(), labels, {marginX, marginY});
    const DotNode *node = graph->findNode(u"a"_s);
    return graph->nodeAttribute(node, u"width"_s) + u' ' + graph->nodeAttribute(node, u"height"_s);
}

constexpr auto box40x20 = " d1=10 d2=20 width=40 height=20";
constexpr auto box40x8 = " d1=10 d2=20 width=40 height=8";

} // namespace

TEST(PainterShapes, hexagon_has_slopes_of_five_points)
{
    EXPECT_EQ(
        drawn("shape=hexagon" + QByteArray(box40x20)),
        QStringList(u"polygon 10,30 15,20 45,20 50,30 45,40 15,40 10,30"_s + QLatin1String(solid)));
}

TEST(PainterShapes, hexagon_lower_than_ten_points_has_slopes_of_half_its_height)
{
    EXPECT_EQ(
        drawn("shape=hexagon" + QByteArray(box40x8)),
        QStringList(u"polygon 10,24 14,20 46,20 50,24 46,28 14,28 10,24"_s + QLatin1String(solid)));
}

// With d = 10 and e = 5: k = (10 - 2) * 5 / 10 - 5 + 2 = 1.
TEST(PainterShapes, inner_hexagon_lies_two_points_inside)
{
    EXPECT_EQ(drawn("shape=hexagon peripheries=2" + QByteArray(box40x20)).value(1),
              u"polygon 12,30 16,22 44,22 48,30 44,38 16,38 12,30"_s + QLatin1String(hollow));
}

// The cut is a third of the height, 20 / 3, and not more than 8.
TEST(PainterShapes, octagon_cuts_a_third_of_its_height)
{
    EXPECT_EQ(drawn("shape=octagon" + QByteArray(box40x20)),
              QStringList(u"polygon 17,20 43,20 50,27 50,33 43,40 17,40 10,33 10,27 17,20"_s
                          + QLatin1String(solid)));
}

TEST(PainterShapes, octagon_cuts_eight_points_at_most)
{
    EXPECT_EQ(drawn("shape=octagon d1=0 d2=0 width=60 height=60"),
              QStringList(u"polygon 8,0 52,0 60,8 60,52 52,60 8,60 0,52 0,8 8,0"_s
                          + QLatin1String(solid)));
}

// With t = 8 and k = 2 - 2 * 0.4142 = 1.1716.
TEST(PainterShapes, inner_octagon_lies_two_points_inside)
{
    EXPECT_EQ(drawn("shape=octagon peripheries=2 d1=0 d2=0 width=60 height=60").value(1),
              u"polygon 9,2 51,2 58,9 58,51 51,58 9,58 2,51 2,9 9,2"_s + QLatin1String(hollow));
}

TEST(PainterShapes, oval_fills_its_box)
{
    EXPECT_EQ(drawn("shape=oval" + QByteArray(box40x20)),
              QStringList(u"ellipse 30,30 radii 20,10"_s + QLatin1String(solid)));
}

TEST(PainterShapes, inner_oval_has_the_same_centre)
{
    EXPECT_EQ(drawn("shape=oval peripheries=2" + QByteArray(box40x20)).value(1),
              u"ellipse 30,30 radii 18,8"_s + QLatin1String(hollow));
}

TEST(PainterShapes, parallelogram_has_a_slant_of_five)
{
    EXPECT_EQ(drawn("shape=parallelogram" + QByteArray(box40x20)),
              QStringList(u"polygon 15,20 50,20 45,40 10,40 15,20"_s + QLatin1String(solid)));
}

// s = (20 - 2) * 5 / 20 - 5 = -0.5.
TEST(PainterShapes, inner_parallelogram_keeps_the_slopes)
{
    EXPECT_EQ(drawn("shape=parallelogram peripheries=2" + QByteArray(box40x20)).value(1),
              u"polygon 17,22 48,22 44,38 13,38 17,22"_s + QLatin1String(hollow));
}

TEST(PainterShapes, rectangle_has_square_corners)
{
    EXPECT_EQ(drawn("shape=rectangle" + QByteArray(box40x20)),
              QStringList(u"rect 10,20 50,40 radius 0"_s + QLatin1String(solid)));
}

TEST(PainterShapes, largest_corner_radius_at_font_size_12_is_9)
{
    EXPECT_EQ(drawn("shape=rectangle style=\"filled,rounded\"" + QByteArray(box40x20)),
              QStringList(u"rect 10,20 50,40 radius 9"_s + QLatin1String(solid)));
}

// The larger of 4 / 2 and 7 / 2 is 3.5.
TEST(PainterShapes, radius_of_a_small_rectangle_is_half_of_its_longer_side)
{
    EXPECT_EQ(drawn("shape=rectangle style=rounded d1=0 d2=0 width=7 height=4").value(0),
              u"rect 0,0 7,4 radius 3"_s + QLatin1String(solid));
}

TEST(PainterShapes, radius_of_a_rectangle_without_size_is_not_negative)
{
    EXPECT_EQ(drawn("shape=rectangle style=rounded d1=0 d2=0 width=\"-7\" height=\"-4\"").value(0),
              u"rect 0,0 -6,-3 radius 0"_s + QLatin1String(solid));
}

TEST(PainterShapes, inner_rectangle_has_a_smaller_radius)
{
    EXPECT_EQ(drawn("shape=rectangle style=rounded peripheries=2" + QByteArray(box40x20)).value(1),
              u"rect 12,22 48,38 radius 7"_s + QLatin1String(hollow));
    EXPECT_EQ(drawn("shape=rectangle peripheries=2" + QByteArray(box40x20)).value(1),
              u"rect 12,22 48,38 radius 0"_s + QLatin1String(hollow));
}

TEST(PainterShapes, coordinates_are_rounded_by_adding_a_half_and_truncating)
{
    EXPECT_EQ(drawn("shape=rectangle d1=\"-2.5\" d2=1.5 width=1 height=1").value(0),
              u"rect -2,2 -1,3 radius 0"_s + QLatin1String(solid));
}

TEST(PainterShapes, any_other_shape_has_no_outline_no_slash_and_no_expander)
{
    EXPECT_EQ(
        drawn("shape=box slash=true expander=true" + QByteArray(box40x20), "rankdir=LR", true),
        QStringList());
    EXPECT_EQ(drawn("slash=true" + QByteArray(box40x20)), QStringList());
    EXPECT_EQ(drawn("shape=Rectangle" + QByteArray(box40x20)), QStringList());
}

TEST(PainterShapes, any_other_shape_keeps_its_label)
{
    const QStringList calls = drawn("shape=box label=x" + QByteArray(box40x20));
    ASSERT_EQ(calls.size(), 1);
    EXPECT_TRUE(calls.at(0).startsWith(u"text "_s)) << calls.at(0).toStdString();
}

TEST(PainterShapes, slash_is_solid_and_one_wide_whatever_the_pen_is)
{
    EXPECT_EQ(
        drawn("shape=none slash=true color=red style=dashed penwidth=3" + QByteArray(box40x20)),
        QStringList(u"polyline 10,40 50,20 pen red solid 1"_s));
}

TEST(PainterShapes, shape_none_has_no_outline)
{
    EXPECT_EQ(drawn("shape=none" + QByteArray(box40x20)), QStringList());
}

TEST(PainterShapes, no_shape_fails_on_a_box_without_size_or_without_numbers)
{
    for (const char *shape : {"hexagon", "octagon", "oval", "parallelogram", "rectangle", "none"}) {
        for (const char *size : {"0", "nan", "1e308", "-1e308", "inf"}) {
            const QByteArray attributes = QByteArray("shape=") + shape
                + " peripheries=2 style=rounded slash=true label=x d1=\"" + size + "\" d2=\"" + size
                + "\" width=\"" + size + "\" height=\"" + size + "\"";
            EXPECT_FALSE(drawn(attributes).isEmpty()) << attributes.constData();
        }
    }
}

TEST(PainterMeasures, label_and_margins_on_both_sides)
{
    const QSize text = [] {
        RecordingDevice device;
        return TextImage::textSize(device.text(u"label"_s, nullptr, nullptr), false);
    }();
    EXPECT_EQ(measured("label=label", 3, 5),
              u"%1 %2"_s.arg(text.width() + 6).arg(text.height() + 10));
    EXPECT_EQ(measured("", 3, 5), u"6 10"_s);
}

TEST(PainterMeasures, every_shape_has_its_allowance)
{
    EXPECT_EQ(measured("shape=hexagon"), u"10 0"_s);
    EXPECT_EQ(measured("shape=octagon"), u"16 0"_s);
    EXPECT_EQ(measured("shape=oval"), u"18 0"_s);
    EXPECT_EQ(measured("shape=parallelogram"), u"10 0"_s);
    EXPECT_EQ(measured("shape=rectangle style=rounded"), u"18 0"_s);
    EXPECT_EQ(measured("shape=rectangle"), u"0 0"_s);
    EXPECT_EQ(measured("shape=none"), u"0 0"_s);
    EXPECT_EQ(measured("shape=box"), u"0 0"_s);
}

TEST(PainterMeasures, rounded_style_widens_rectangles_only)
{
    EXPECT_EQ(measured("shape=hexagon style=rounded"), u"10 0"_s);
    EXPECT_EQ(measured("shape=box style=rounded"), u"0 0"_s);
}

TEST(PainterMeasures, double_outline_adds_four_to_both_measures)
{
    EXPECT_EQ(measured("peripheries=2"), u"4 4"_s);
    EXPECT_EQ(measured("peripheries=3"), u"0 0"_s);
    EXPECT_EQ(measured("peripheries=0"), u"0 0"_s);
    EXPECT_EQ(measured("peripheries=\"2.0\""), u"0 0"_s);
}

TEST(PainterMeasures, sizes_are_kept_with_six_digits)
{
    EXPECT_EQ(measured("", 0.12345678, 123456.75), u"0.246914 246914"_s);
}

TEST(PainterLabel, stands_in_the_middle_of_its_node)
{
    RecordingDevice device;
    const QSize size = TextImage::textSize(device.text(u"xy"_s, nullptr, nullptr), false);
    const int x = rounded(10 + (40 - size.width()) * 0.5);
    const int y = rounded(20 + (20 - size.height()) * 0.5);
    EXPECT_EQ(drawn("label=xy" + QByteArray(box40x20)),
              QStringList(u"text %1,%2 \"xy\" Arial 12 #000000"_s.arg(x).arg(y)));
}

TEST(PainterLabel, lies_on_top_of_the_outline)
{
    const QStringList calls = drawn("shape=rectangle label=xy" + QByteArray(box40x20));
    ASSERT_EQ(calls.size(), 2);
    EXPECT_TRUE(calls.at(0).startsWith(u"rect"_s));
    EXPECT_TRUE(calls.at(1).startsWith(u"text"_s));
}

TEST(PainterAxes, d1_is_x_from_left_to_right_and_y_otherwise)
{
    const QByteArray node = "shape=rectangle d1=10 d2=20 width=3 height=4";
    EXPECT_TRUE(drawn(node, "rankdir=LR").value(0).startsWith(u"rect 10,20 13,24"_s));
    EXPECT_TRUE(drawn(node, "rankdir=RL").value(0).startsWith(u"rect 10,20 13,24"_s));
    for (const char *other : {"rankdir=TB", "rankdir=BT", "rankdir=lr", "label=x"})
        EXPECT_TRUE(drawn(node, other).value(0).startsWith(u"rect 20,10 23,14"_s)) << other;
}

TEST(PainterAxes, page_is_turned_with_them)
{
    for (const auto &[rankdir, call] :
         {std::pair("LR", u"begin 100 51"_s), std::pair("RL", u"begin 100 51"_s),
          std::pair("TB", u"begin 51 100"_s), std::pair("", u"begin 51 100"_s)}) {
        const auto graph = parsed("digraph { graph [rankdir=\"" + QByteArray(rankdir) + "\"] }");
        RecordingDevice device;
        draw(graph.get(), device, {99.5, 50.5});
        EXPECT_EQ(device.calls().value(0), call) << rankdir;
    }
}

TEST(PainterResult, is_what_the_device_says_at_the_end)
{
    const auto graph = parsed("digraph { }");
    RecordingDevice device;
    device.setResult(u"Disk full\n"_s);
    EXPECT_EQ(draw(graph.get(), device, {1, 1}), u"Disk full\n"_s);
}

namespace {

QSize glyphSize()
{
    RecordingDevice device;
    return TextImage::textSize(
        device.text(QString(QChar(0x2B24)), device.font(u"Arial"_s, 12, -1), nullptr), false);
}

QString expanderAt(double x, double y)
{
    return u"richtext %1,%2 \"<a style=\"color: red; text-decoration: none;\" "
           u"href=\"16384\">&#11044;</a>\" Arial 12 red"_s.arg(rounded(x))
               .arg(rounded(y));
}

QString expanderUnder(const QByteArray &rankdir)
{
    return drawn("shape=rectangle expander=true d1=100 d2=100 width=40 height=40",
                 "expandcolor=red rankdir=\"" + rankdir + "\"", true)
        .value(1);
}

} // namespace

TEST(PainterExpander, sits_where_the_edges_leave)
{
    const double w = glyphSize().width();
    const double h = glyphSize().height();
    EXPECT_EQ(expanderUnder("LR"), expanderAt(140 - 3, 120 - h * 0.5 - 0.5));
    EXPECT_EQ(expanderUnder("RL"), expanderAt(100 - w + 3, 120 - h * 0.5 - 0.5));
    EXPECT_EQ(expanderUnder("BT"), expanderAt(120 - w * 0.5 - 0.5, 100 - h + 3));
    EXPECT_EQ(expanderUnder("TB"), expanderAt(120 - w * 0.5 - 0.5, 140 - 3));
    EXPECT_EQ(expanderUnder(""), expanderAt(120 - w * 0.5 - 0.5, 140 - 3));
}

TEST(PainterExpander, is_drawn_only_on_devices_that_want_it)
{
    const QByteArray node = "shape=none expander=true" + QByteArray(box40x20);
    EXPECT_EQ(drawn(node, "rankdir=LR", false).size(), 0);
    EXPECT_EQ(drawn(node, "rankdir=LR", true).size(), 1);
    EXPECT_EQ(drawn("shape=none expander=True" + QByteArray(box40x20), "rankdir=LR", true).size(),
              0);
}

TEST(PainterExpander, size_goes_with_the_font_size_on_every_device)
{
    const auto sizeAt = [](const QByteArray &fontSize) {
        const auto graph = parsed("digraph { graph [fontsize=\"" + fontSize + "\"] }");
        return Layout::expanderExtent(graph.get());
    };
    EXPECT_EQ(sizeAt("12"), 9);
    EXPECT_EQ(sizeAt("12.5"), -3);
    EXPECT_EQ(sizeAt("-2147483648"), -2147483648);
}

TEST(PainterFrame, takes_place_style_and_lines_from_the_graph)
{
    const auto graph = parsed("digraph { graph [rankdir=LR] subgraph s { graph [color=red "
                              "fillcolor=yellow style=\"rounded,dashed\" peripheries=2 d1=10 d2=20 "
                              "width=40 height=20 penwidth=2] } }");
    RecordingDevice device;
    draw(graph.get(), device, {1, 1});
    EXPECT_EQ(device.calls(),
              lines({"begin 1 1", "beginCluster s",
                     "rect 10,20 50,40 radius 9 pen red dashed 2 fill yellow",
                     "rect 12,22 48,38 radius 7 pen red dashed 2 fill none", "endCluster", "end"}));
}

TEST(PainterFrame, falls_back_to_the_node_defaults)
{
    const auto graph =
        parsed("digraph { graph [rankdir=LR] node [penwidth=4 fillcolor=lime] subgraph s "
               "{ graph [color=red] } }");
    RecordingDevice device;
    draw(graph.get(), device, {1, 1});
    EXPECT_EQ(device.callsOf(u"rect"_s),
              lines({"rect 0,0 0,0 radius 0 pen red solid 4 fill lime"}));
}

TEST(PainterFrame, needs_a_colour_that_is_not_none)
{
    const auto framesWith = [](const QByteArray &attributes) {
        const auto graph = parsed("digraph { graph [" + attributes + "] }");
        RecordingDevice device;
        draw(graph.get(), device, {1, 1});
        return device.callsOf(u"rect"_s).size();
    };
    EXPECT_EQ(framesWith(""), 0);
    EXPECT_EQ(framesWith("color=\"\""), 0);
    EXPECT_EQ(framesWith("color=none"), 0);
    EXPECT_EQ(framesWith("color=red"), 1);
    EXPECT_EQ(framesWith("color=None"), 1);
}

// It is looked up as for a node in the graph: what the graphs around it say does not count.
TEST(PainterFrame, inherits_no_paint_from_the_graphs_around)
{
    const auto graph =
        parsed("digraph { graph [color=red fillcolor=yellow penwidth=2] subgraph s { } }");
    RecordingDevice device;
    draw(graph.get(), device, {1, 1});
    EXPECT_EQ(device.callsOf(u"rect"_s),
              lines({"rect 0,0 0,0 radius 0 pen red solid 2 fill yellow",
                     "rect 0,0 0,0 radius 0 pen #000000 solid 1 fill #FFFFFF"}));
}

TEST(PainterFrame, is_crossed_out_and_expandable_like_a_node)
{
    const auto graph = parsed("digraph { graph [rankdir=LR color=red slash=true d1=10 d2=20 "
                              "width=40 height=20] node [expander=true] }");
    RecordingDevice device(true, true);
    draw(graph.get(), device, {1, 1});
    EXPECT_EQ(device.callsOf(u"polyline"_s), lines({"polyline 10,40 50,20 pen red solid 1"}));
    EXPECT_EQ(device.callsOf(u"richtext"_s).size(), 1);
}

TEST(PainterFrame, leaves_no_node_behind)
{
    const auto graph = parsed("digraph { graph [color=red] }");
    RecordingDevice device;
    draw(graph.get(), device, {1, 1});
    EXPECT_TRUE(graph->allNodes().isEmpty());
    EXPECT_TRUE(graph->root()->nodes.isEmpty());
    EXPECT_TRUE(graph->graphAttribute(graph->root(), u"shape"_s).isNull());
}

TEST(PainterNode, invisible_one_is_begun_and_ended)
{
    const auto graph = parsed("digraph { a [shape=rectangle label=x style=\"filled,invis\"] }");
    RecordingDevice device;
    draw(graph.get(), device, {1, 1});
    EXPECT_EQ(device.calls(), lines({"begin 1 1", "beginNode a", "endNode", "end"}));
}

namespace {

// All calls for the one edge of a graph, from beginEdge on.
QStringList drawnEdge(const QByteArray &attributes)
{
    const auto graph = parsed("digraph { graph [rankdir=LR] a -> b [" + attributes + "] }");
    RecordingDevice device;
    draw(graph.get(), device, {1, 1});
    const QStringList calls = device.calls();
    const qsizetype first = calls.indexOf(u"beginEdge a->b"_s);
    return calls.sliced(first + 1, calls.size() - first - 2);
}

} // namespace

TEST(PainterEdge, is_a_line_of_four_rounded_points)
{
    EXPECT_EQ(drawnEdge("d1=\"1 2.5 3 4\" d2=\"5 6 7 8.4\" style=dotted penwidth=2 color=red"),
              lines({"polyline 1,5 3,6 3,7 4,8 pen red dotted 2", "endEdge", "connect a->b a b"}));
}

TEST(PainterEdge, without_four_numbers_on_both_axes_is_an_object_without_a_line)
{
    for (const char *attributes :
         {"", "d1=\"1 2 3 4\"", "d1=\"1 2 3 4\" d2=\"1 2 3\"", "d1=\"1 2 3 4\" d2=\"1 2 3 4 \"",
          "d1=\"1  2 3 4\" d2=\"1 2 3 4\""})
        EXPECT_EQ(drawnEdge(attributes), lines({"endEdge", "connect a->b a b"})) << attributes;
}

TEST(PainterEdge, counts_empty_parts_as_zero)
{
    EXPECT_EQ(drawnEdge("d1=\"   \" d2=\"1 x 3 4\"").value(0),
              u"polyline 0,1 0,0 0,3 0,4 pen #000000 solid 1"_s);
}

TEST(PainterEdge, arrow_points_away_from_the_point_before)
{
    EXPECT_EQ(drawnEdge("arrowhead=normal d1=\"0 5 5 20\" d2=\"0 0 9 9\"").value(1),
              u"polygon 20,9 14,6 14,12 20,9 pen #000000 solid 1 fill #000000"_s);
    EXPECT_EQ(drawnEdge("arrowhead=normal d1=\"40 30 30 20\" d2=\"0 0 9 9\"").value(1),
              u"polygon 20,9 26,6 26,12 20,9 pen #000000 solid 1 fill #000000"_s);
}

TEST(PainterEdge, arrow_of_a_vertical_run_lies_to_the_right_of_its_tip)
{
    EXPECT_EQ(drawnEdge("arrowhead=normal d1=\"0 5 20 20\" d2=\"0 0 0 9\"").value(1),
              u"polygon 20,9 26,6 26,12 20,9 pen #000000 solid 1 fill #000000"_s);
}

TEST(PainterEdge, arrow_keeps_the_dashes_of_its_line)
{
    EXPECT_EQ(drawnEdge("arrowhead=normal style=dashed color=red d1=\"0 5 5 20\" d2=\"0 0 9 9\"")
                  .value(1),
              u"polygon 20,9 14,6 14,12 20,9 pen red dashed 1 fill red"_s);
}

TEST(PainterEdge, other_arrow_heads_are_not_drawn)
{
    for (const char *head : {"none", "vee", "Normal", ""}) {
        EXPECT_EQ(drawnEdge("d1=\"0 5 5 20\" d2=\"0 0 9 9\" arrowhead=\"" + QByteArray(head) + "\"")
                      .size(),
                  3)
            << head;
    }
}

TEST(PainterOrder, frame_then_nodes_then_subgraphs_then_edges)
{
    const auto graph =
        parsed("digraph { graph [rankdir=LR] edge [d1=\"1 2 3 4\" d2=\"1 2 3 4\"] "
               "subgraph s { graph [color=red] b [] c [] c -> b [] } a [] a -> b [] }");
    RecordingDevice device;
    draw(graph.get(), device, {1, 1});
    EXPECT_EQ(device.calls(),
              lines({"begin 1 1", "beginNode a", "endNode", "beginCluster s",
                     "rect 0,0 0,0 radius 0 pen red solid 1 fill #FFFFFF", "beginNode b", "endNode",
                     "beginNode c", "endNode", "beginEdge c->b",
                     "polyline 1,1 2,2 3,3 4,4 pen #000000 solid 1", "endEdge", "connect c->b c b",
                     "endCluster", "beginEdge a->b", "polyline 1,1 2,2 3,3 4,4 pen #000000 solid 1",
                     "endEdge", "connect a->b a b", "end"}));
}

TEST(PainterOrder, nesting_100000_deep_is_drawn)
{
    const int depth = 100'000;
    const auto graph = parsed("digraph {" + QByteArray("subgraph {").repeated(depth) + "a []"
                              + QByteArray("}").repeated(depth) + "}");
    RecordingDevice device;
    draw(graph.get(), device, {1, 1});
    EXPECT_EQ(device.callsOf(u"endCluster"_s).size(), depth);
}
