#include "output/xdot.h"

#include "device/xdot_render.h"
#include "graph/dot_parser.h"
#include "output/xdot_path.h"
#include "output/xdot_text.h"
#include "support/golden.h"

#include <QTemporaryDir>

#include <limits>
#include <random>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// A page of 200 by 100 points with one open node "n", written to a file of its own.
class XDotDrawing : public testing::Test
{
protected:
    XDotDrawing() { device.begin(200, 100); }

    void SetUp() override
    {
        node = graph.createNode(graph.root(), {}, u"n"_s);
        device.beginNode(node);
    }

    // Ends the node and reads the file back.
    void finish()
    {
        device.endNode();
        write();
    }
    void write()
    {
        ASSERT_EQ(device.end(), u""_s);
        bytes = readTestFile(fileName);
        written = parseDot(bytes);
        ASSERT_TRUE(written) << bytes.toStdString();
    }
    // An attribute of node "n" as it was written.
    QString value(const QString &name) const
    {
        const DotNode *found = written->findNode(u"n"_s);
        return found ? found->attributes.value(name) : QString();
    }
    QString drawn()
    {
        finish();
        return value(u"_draw_"_s);
    }
    QString labelled()
    {
        finish();
        return value(u"_ldraw_"_s);
    }

    QTemporaryDir folder;
    QString fileName = folder.filePath(u"out.xdot"_s);
    XDot device{fileName};
    DotGraph graph;
    DotNode *node = nullptr;
    Device::Pen *black = device.pen(device.color(u"#000000"_s), 0, 1);
    Device::Color *red = device.color(u"red"_s);
    Device::Font *arial = device.font(u"Arial"_s, 12, 0);
    QByteArray bytes;
    std::unique_ptr<DotGraph> written;
};

const QString blackOps = u"S 5 -solid c 7 -#000000 "_s;

} // namespace

TEST_F(XDotDrawing, begin_sets_bb_and_the_version)
{
    finish();
    EXPECT_EQ(written->graphAttribute(written->root(), u"bb"_s), u"0,0,200,100"_s);
    EXPECT_EQ(written->graphAttribute(written->root(), u"xdotversion"_s), u"1.2"_s);
}

TEST_F(XDotDrawing, a_filled_polygon)
{
    device.drawPolygon({{0, 0}, {10, 0}, {10, 10}}, black, red);
    EXPECT_EQ(drawn(), u"S 5 -solid c 7 -#000000  C 3 -red  P  3 0 100 10 100 10 90"_s);
}

TEST_F(XDotDrawing, an_open_polygon)
{
    device.drawPolygon({{0, 0}, {10, 0}}, black, nullptr);
    EXPECT_EQ(drawn(), blackOps + u" p  2 0 100 10 100"_s);
}

TEST_F(XDotDrawing, a_second_primitive_follows_with_one_blank_between)
{
    device.drawPolygon({{0, 0}}, black, nullptr);
    device.drawPolyline({{1, 1}, {2, 2}}, black);
    EXPECT_EQ(drawn(), blackOps + u" p  1 0 100 "_s + blackOps + u" L 2 1 99 2 98"_s);
}

TEST_F(XDotDrawing, beziers)
{
    device.drawBezier({{0, 0}, {1, 1}, {2, 2}, {3, 3}}, black, nullptr);
    device.drawBezier({{0, 0}}, black, red);
    EXPECT_EQ(drawn(),
              blackOps + u" B  4 0 100 1 99 2 98 3 97 "_s + blackOps + u" C 3 -red  b  1 0 100"_s);
}

TEST_F(XDotDrawing, ellipses)
{
    device.drawEllipse({10, 20}, 3, 4, black, nullptr);
    device.drawEllipse({10, 20}, 3, 4, black, red);
    EXPECT_EQ(drawn(), blackOps + u" e  10 80 3 4 "_s + blackOps + u" C 3 -red  E  10 80 3 4"_s);
}

TEST_F(XDotDrawing, a_polyline_has_one_blank_behind_its_letter_and_no_fill)
{
    device.drawPolyline({{0, 0}, {5, 5}}, black);
    EXPECT_EQ(drawn(), blackOps + u" L 2 0 100 5 95"_s);
}

TEST_F(XDotDrawing, shapes_without_points_end_in_their_number)
{
    device.drawPolygon({}, black, nullptr);
    device.drawPolyline({}, black);
    device.drawBezier({}, black, nullptr);
    EXPECT_EQ(drawn(), blackOps + u" p  0 "_s + blackOps + u" L 0 "_s + blackOps + u" B  0"_s);
}

TEST_F(XDotDrawing, a_shape_without_paint_has_no_blank_in_front)
{
    device.drawPolygon({{1, 2}}, nullptr, nullptr);
    device.drawPolygon({{1, 2}}, nullptr, nullptr);
    EXPECT_EQ(drawn(), u"p  1 1 98  p  1 1 98"_s);
}

TEST_F(XDotDrawing, a_rectangle_is_a_polygon_from_its_top_left_corner_round)
{
    device.drawRect({1, 2}, {11, 22}, 0, black, red);
    EXPECT_EQ(drawn(), blackOps + u" C 3 -red  P  4 1 98 11 98 11 78 1 78"_s);
    EXPECT_EQ(value(u"rounded"_s), QString());
}

TEST_F(XDotDrawing, a_corner_radius_is_an_attribute)
{
    device.drawRect({1, 2}, {11, 22}, 5, black, red);
    finish();
    EXPECT_EQ(value(u"rounded"_s), u"5"_s);
}

TEST_F(XDotDrawing, pen_styles)
{
    device.drawPolyline({}, device.pen(red, Device::Pen::Dashed, 1));
    device.drawPolyline({}, device.pen(red, Device::Pen::Dotted, 1));
    EXPECT_EQ(drawn(), u"S 6 -dashed c 3 -red  L 0 S 6 -dotted c 3 -red  L 0"_s);
}

TEST_F(XDotDrawing, a_pen_without_colour_has_no_colour_op)
{
    device.drawPolyline({}, device.pen(nullptr, 0, 1));
    EXPECT_EQ(drawn(), u"S 5 -solid L 0"_s);
}

TEST_F(XDotDrawing, a_pen_width_other_than_one_is_an_attribute_and_no_op)
{
    device.drawPolyline({}, device.pen(red, 0, 2));
    EXPECT_EQ(drawn(), u"S 5 -solid c 3 -red  L 0"_s);
    EXPECT_EQ(value(u"penwidth"_s), u"2"_s);
}

TEST_F(XDotDrawing, the_last_pen_width_that_is_not_one_holds)
{
    device.drawPolyline({}, device.pen(red, 0, 2));
    device.drawPolyline({}, device.pen(red, 0, 3));
    device.drawPolyline({}, black);
    finish();
    EXPECT_EQ(value(u"penwidth"_s), u"3"_s);
}

TEST_F(XDotDrawing, a_linear_gradient)
{
    device.drawPolygon(
        {}, nullptr, device.linearGradient({0, 0}, {50, 0}, {u"#000000"_s, u"#FFFFFF"_s}, {0, 1}));
    EXPECT_EQ(drawn(), u"C 42 -[0 100 50 100 2 0 7 -#000000 1 7 -#FFFFFF]  P  0"_s);
}

TEST_F(XDotDrawing, a_radial_gradient_has_its_radii_in_third_and_sixth_place)
{
    device.drawPolygon({}, nullptr,
                       device.radialGradient({10, 20}, 1.5, {30, 40.25}, 7, {u"red"_s}, {0.5}));
    EXPECT_EQ(drawn(), u"C 35 -(10 80 1.5 30 59.75 7 1 0.5 3 -red)  P  0"_s);
}

TEST(XDotText, a_gradient_without_stops_keeps_its_open_places)
{
    const Device::Color linear({0, 0}, {1, 1}, {}, {});
    const Device::Color radial({0, 0}, 2, {1, 1}, 3, {}, {});
    EXPECT_EQ(xdotFill(&linear, 100), u"[%1 %2 %3 %4 %5]"_s);
    EXPECT_EQ(xdotFill(&radial, 100), u"(%3 %4 2 %5 %6 3 %7)"_s);
}

TEST(XDotText, numbers_have_six_significant_digits)
{
    const Device::Color linear({1.0 / 3, 0}, {1e6, -1e6}, {u"a"_s}, {0.1234567});
    EXPECT_EQ(xdotFill(&linear, 100), u"[0.333333 100 1e+06 1.0001e+06 1 0.123457 1 -a]"_s);
}

TEST_F(XDotDrawing, a_text_is_centred_on_its_baseline)
{
    Device::Text *text = device.text(u"label"_s, arial, red);
    const int width = TextImage::textSize(text, false).width();
    device.drawText({10, 20}, text);
    EXPECT_EQ(
        labelled(),
        u"c 3 -red F 12 5 -Arial T %1 68 0 %2 5 -label"_s.arg(int(width * 0.5 + 10)).arg(width));
}

TEST_F(XDotDrawing, each_line_of_a_text_is_an_op_with_colour_and_font)
{
    Device::Text *text = device.text(u"ab\nc"_s, arial, red);
    device.drawText({10, 20}, text);
    const int first = TextImage::textSize(u"ab"_s, arial, false).width();
    const int second = TextImage::textSize(u"c"_s, arial, false).width();
    const int step = TextImage::fontLineSpacing(arial);
    EXPECT_EQ(labelled(),
              u"c 3 -red F 12 5 -Arial T %1 68 0 %2 2 -ab"_s.arg(int(first * 0.5 + 10)).arg(first)
                  + u" c 3 -red F 12 5 -Arial T %1 %2 0 %3 1 -c"_s.arg(int(second * 0.5 + 10))
                        .arg(68 - step)
                        .arg(second));
}

TEST_F(XDotDrawing, empty_lines_are_kept)
{
    device.drawText({0, 0}, device.text(u"\n"_s, arial, nullptr));
    const int step = TextImage::fontLineSpacing(arial);
    EXPECT_EQ(labelled(),
              u"F 12 5 -Arial T 0 88 0 0 0 - F 12 5 -Arial T 0 %1 0 0 0 -"_s.arg(88 - step));
}

TEST_F(XDotDrawing, a_text_keeps_its_blanks)
{
    device.drawText({0, 0}, device.text(u"  a  "_s, arial, nullptr));
    EXPECT_TRUE(labelled().endsWith(u" 5 -  a  "_s));
}

TEST_F(XDotDrawing, a_text_without_colour_has_no_colour_op)
{
    device.drawText({0, 0}, device.text(u""_s, arial, nullptr));
    EXPECT_EQ(labelled(), u"F 12 5 -Arial T 0 88 0 0 0 -"_s);
}

TEST_F(XDotDrawing, a_font_style_has_an_op_of_its_own)
{
    device.drawText({0, 0}, device.text(u""_s, device.font(u"Arial"_s, 12, 3), red));
    EXPECT_EQ(labelled(), u"c 3 -red F 12 5 -Arial t 3 T 0 88 0 0 0 -"_s);
}

TEST_F(XDotDrawing, lengths_count_bytes)
{
    device.drawText({0, 0},
                    device.text(u"ä€"_s, device.font(u"Ä"_s, 12, 0), device.color(u"rö"_s)));
    const QString label = labelled();
    EXPECT_TRUE(label.startsWith(u"c 3 -rö F 12 2 -Ä T "_s));
    EXPECT_TRUE(label.endsWith(u" 5 -ä€"_s));
}

TEST_F(XDotDrawing, rich_text_is_an_h)
{
    Device::Text *text = device.text(u"<b>x</b>"_s, arial, red);
    device.drawRichText({0, 0}, text);
    const int width = TextImage::textSize(text, true).width();
    EXPECT_EQ(
        labelled(),
        u"c 3 -red F 12 5 -Arial H %1 88 0 %2 8 -<b>x</b>"_s.arg(int(width * 0.5)).arg(width));
}

TEST_F(XDotDrawing, rich_text_beyond_the_limits_is_a_t_of_its_plain_text)
{
    const QString nested = u"<table><tr><td>"_s.repeated(22) + u"deep"_s;
    device.drawRichText({0, 0}, device.text(nested, arial, red));
    const int width = TextImage::textSize(u"deep"_s, arial, false).width();
    EXPECT_EQ(labelled(),
              u"c 3 -red F 12 5 -Arial T %1 88 0 %2 4 -deep"_s.arg(int(width * 0.5)).arg(width));
}

TEST_F(XDotDrawing, texts_and_shapes_go_to_attributes_of_their_own)
{
    device.drawText({0, 0}, device.text(u""_s, arial, nullptr));
    device.drawPolyline({}, nullptr);
    device.drawText({0, 0}, device.text(u""_s, arial, nullptr));
    EXPECT_EQ(drawn(), u"L 0"_s);
    EXPECT_EQ(value(u"_ldraw_"_s), u"F 12 5 -Arial T 0 88 0 0 0 - F 12 5 -Arial T 0 88 0 0 0 -"_s);
}

// The reader takes a backslash and the line feed behind it for no characters at all.
TEST_F(XDotDrawing, a_line_that_is_continued_counts_as_the_reader_joins_it)
{
    device.drawPolyline({{0, 0}}, device.pen(device.color(u"r\\\ne"_s), 0, 1));
    device.drawText({0, 0}, device.text(u"a"_s, device.font(u"\\\\\n\\\nb"_s, 12, 0), red));
    finish();
    EXPECT_EQ(value(u"_draw_"_s), u"S 5 -solid c 2 -re  L 1 0 100"_s);
    EXPECT_TRUE(value(u"_ldraw_"_s).startsWith(u"c 3 -red F 12 2 -\\b T "_s));
}

TEST_F(XDotDrawing, a_zero_character_is_left_out)
{
    const QString text = u"a"_s + QChar::Null + u"b"_s;
    device.drawText({0, 0}, device.text(text, arial, device.color(text)));
    const QString ops = labelled();
    EXPECT_TRUE(ops.startsWith(u"c 2 -ab F 12 5 -Arial T "_s)) << ops.toStdString();
    EXPECT_TRUE(ops.endsWith(u" 2 -ab"_s)) << ops.toStdString();
}

TEST_F(XDotDrawing, a_path_is_a_counted_string)
{
    Device::Path *path = device.createPath();
    path->moveTo({0, 0});
    path->lineTo({1.25, 0});
    path->cubicTo({1, 2}, {3, 4}, {5, 6});
    path->quadTo({7, 8}, {9, 10});
    path->arcTo({0, 0}, {20, 10}, 90, -180.5);
    path->closeSubpath();
    device.drawPath(path, black, red);
    const QString ops =
        u"M 0 100 L 1.25 100 C 1 98 3 96 5 94 Q 7 92 9 90 E 0 100 20 90 90 -180.5 Z"_s;
    EXPECT_EQ(drawn(), blackOps + u" C 3 -red  D %1 -"_s.arg(ops.size()) + ops);
}

TEST_F(XDotDrawing, a_path_without_fill_is_a_small_d)
{
    device.drawPath(device.createPath(), black, nullptr);
    EXPECT_EQ(drawn(), blackOps + u" d 0 -"_s);
}

TEST_F(XDotDrawing, a_path_of_another_device_is_deleted_and_not_drawn)
{
    struct Foreign : Device::Path
    {
        explicit Foreign(bool *flag) : deleted(flag) { }
        ~Foreign() override { *deleted = true; }
        void moveTo(const QPointF &) override { }
        void lineTo(const QPointF &) override { }
        void closeSubpath() override { }
        void cubicTo(const QPointF &, const QPointF &, const QPointF &) override { }
        void quadTo(const QPointF &, const QPointF &) override { }
        void arcTo(const QPointF &, const QPointF &, double, double) override { }
        bool *deleted;
    };
    bool deleted = false;
    device.drawPath(new Foreign(&deleted), black, red);
    EXPECT_TRUE(deleted);
    EXPECT_EQ(drawn(), QString());
}

TEST(XDotPath, records_the_points_that_bound_it)
{
    const auto points = [](auto draw) {
        XDotPath path(100);
        draw(path);
        return path.boundingPoints();
    };
    using Points = QList<QPoint>;
    EXPECT_EQ(points([](XDotPath &p) { p.moveTo({1.5, -1.5}); }), (Points{{2, -1}}));
    EXPECT_EQ(points([](XDotPath &p) { p.lineTo({1.4, 2}); }), (Points{{1, 2}}));
    EXPECT_EQ(points([](XDotPath &p) { p.closeSubpath(); }), Points());
    EXPECT_EQ(points([](XDotPath &p) {
                  p.cubicTo({1, 1}, {2, 2}, {3, 3});
              }),
              (Points{{3, 3}, {1, 1}, {1, 1}}));
    EXPECT_EQ(points([](XDotPath &p) { p.quadTo({1, 1}, {2, 2}); }), (Points{{2, 2}, {1, 1}}));
    EXPECT_EQ(points([](XDotPath &p) {
                  p.arcTo({1, 1}, {2, 2}, 0, 90);
              }),
              (Points{{2, 2}, {1, 1}}));
}

TEST_F(XDotDrawing, bounds_of_points_reach_to_the_page_origin)
{
    device.drawPolygon({{100, 100}, {120, 100}, {120, 120}, {100, 120}}, black, nullptr);
    finish();
    EXPECT_EQ(value(u"pos"_s), u"60,60"_s);
    EXPECT_EQ(value(u"width"_s), u"1.68056"_s); // 121 / 72
    EXPECT_EQ(value(u"height"_s), u"1.68056"_s);
}

TEST_F(XDotDrawing, bounds_of_an_ellipse_are_as_wide_as_its_radius)
{
    device.drawEllipse({100, 50}, 36, 18, black, nullptr);
    finish();
    EXPECT_EQ(value(u"pos"_s), u"100,50"_s);
    EXPECT_EQ(value(u"width"_s), u"0.5"_s);
    EXPECT_EQ(value(u"height"_s), u"0.25"_s);
}

TEST_F(XDotDrawing, bounds_of_a_text_are_its_box)
{
    Device::Text *text = device.text(u"label"_s, arial, red);
    const QSize size = TextImage::textSize(text, false);
    device.drawText({100, 50}, text);
    finish();
    const QPoint centre = QRect({100, 50}, size).center();
    EXPECT_EQ(value(u"pos"_s), u"%1,%2"_s.arg(centre.x()).arg(centre.y()));
    EXPECT_EQ(value(u"width"_s), QString::number(size.width() / 72.0, 'g', 6));
}

TEST_F(XDotDrawing, an_object_that_draws_nothing_has_no_geometry)
{
    finish();
    EXPECT_EQ(value(u"pos"_s), QString());
    EXPECT_EQ(value(u"width"_s), QString());
}

TEST_F(XDotDrawing, attributes_are_written_in_the_order_of_drawing)
{
    device.drawPolyline({{1, 1}}, device.pen(red, 0, 2));
    device.drawText({0, 0}, device.text(u""_s, arial, nullptr));
    finish();
    EXPECT_TRUE(bytes.contains("  n [_draw_=\"S 5 -solid c 3 -red  L 1 1 99\", penwidth=\"2\","
                               " _ldraw_=\"F 12 5 -Arial T 0 88 0 0 0 -\", pos=\""))
        << bytes.toStdString();
}

TEST_F(XDotDrawing, the_same_drawing_gives_the_same_bytes)
{
    const auto draw = [this](const QString &name) {
        XDot other(name);
        other.begin(10, 10);
        other.beginNode(node);
        other.drawRect({1, 1}, {5, 5}, 2, other.pen(other.color({}), 1, 3), nullptr);
        other.drawText({1, 1}, other.text(u"x"_s, nullptr, other.color({})));
        other.endNode();
        EXPECT_EQ(other.end(), u""_s);
        return readTestFile(name);
    };
    EXPECT_EQ(draw(folder.filePath(u"1"_s)), draw(folder.filePath(u"2"_s)));
}

TEST_F(XDotDrawing, draws_nothing_outside_of_objects)
{
    device.endNode();
    device.drawPolygon({{1, 1}}, black, red);
    device.drawBezier({{1, 1}}, black, red);
    device.drawEllipse({1, 1}, 1, 1, black, red);
    device.drawPolyline({{1, 1}}, black);
    device.drawRect({1, 1}, {2, 2}, 3, black, red);
    device.drawText({1, 1}, device.text(u"x"_s, arial, red));
    device.drawRichText({1, 1}, device.text(u"x"_s, arial, red));
    device.drawPath(device.createPath(), black, red);
    write();
    EXPECT_FALSE(bytes.contains("draw_"));
}

TEST_F(XDotDrawing, a_null_text_is_not_drawn)
{
    device.drawText({1, 1}, nullptr);
    device.drawRichText({1, 1}, nullptr);
    EXPECT_EQ(labelled(), QString());
}

TEST_F(XDotDrawing, objects_nest_and_the_innermost_is_drawn_on)
{
    device.endNode();
    DotSubgraph *outer = graph.createSubgraph(graph.root(), u"cluster_o"_s);
    DotSubgraph *inner = graph.createSubgraph(outer, u"cluster_i"_s);
    DotNode *a = graph.createNode(inner, {}, u"a"_s);
    device.beginCluster(outer, true);
    device.drawPolyline({{1, 0}}, nullptr);
    device.beginCluster(inner, true);
    device.drawPolyline({{2, 0}}, nullptr);
    device.beginNode(a);
    device.drawPolyline({{3, 0}}, nullptr);
    device.endNode();
    device.drawPolyline({{4, 0}}, nullptr);
    device.endCluster();
    device.endCluster();
    write();
    EXPECT_TRUE(bytes.contains("  subgraph \"cluster_o\" {\n"
                               "    graph [label=\"\", _draw_=\"L 1 1 100\", pos=\"0,0\","
                               " width=\"0.0277778\", height=\"0.0138889\"];\n"
                               "    subgraph \"cluster_i\" {\n"
                               "      graph [label=\"\", _draw_=\"L 1 2 100  L 1 4 100\","
                               " pos=\"2,0\", width=\"0.0694444\", height=\"0.0138889\"];\n"
                               "      a [_draw_=\"L 1 3 100\", pos=\"1,0\", width=\"0.0555556\","
                               " height=\"0.0138889\"];\n"
                               "    }\n"
                               "  }\n"))
        << bytes.toStdString();
}

TEST_F(XDotDrawing, an_edge_may_be_connected_before_its_end)
{
    DotEdge *edge = graph.createEdge(node, node, {});
    device.endNode();
    device.beginEdge(edge);
    device.drawPolyline({{1, 0}}, nullptr);
    device.connect(edge, node, node);
    device.drawPolyline({{2, 0}}, nullptr);
    device.endEdge();
    write();
    EXPECT_TRUE(bytes.contains("  n -> n [_draw_=\"L 1 1 100  L 1 2 100\"];\n"))
        << bytes.toStdString();
}

TEST_F(XDotDrawing, an_edge_may_be_connected_behind_its_end)
{
    DotEdge *edge = graph.createEdge(node, node, {});
    device.endNode();
    device.beginEdge(edge);
    device.drawPolyline({{1, 0}}, nullptr);
    device.endEdge();
    device.connect(edge, node, node);
    write();
    EXPECT_TRUE(bytes.contains("  n -> n [_draw_=\"L 1 1 100\"];\n")) << bytes.toStdString();
}

// Without an attribute list the replay would refuse it.
TEST_F(XDotDrawing, an_edge_that_draws_nothing_has_an_attribute_all_the_same)
{
    for (const bool isEnded : {true, false}) {
        DotEdge *edge = graph.createEdge(node, node, {});
        if (isEnded)
            device.endNode();
        device.beginEdge(edge);
        device.connect(edge, node, node);
        if (isEnded)
            device.endEdge();
    }
    write();
    EXPECT_EQ(bytes.count("  n -> n [label=\"\"];\n"), 2) << bytes.toStdString();
}

TEST_F(XDotDrawing, an_edge_that_is_never_connected_is_lost)
{
    DotEdge *edge = graph.createEdge(node, node, {});
    device.endNode();
    device.beginEdge(edge);
    device.drawPolyline({{1, 0}}, nullptr);
    device.endEdge();
    write();
    EXPECT_FALSE(bytes.contains("->"));
}

TEST_F(XDotDrawing, an_edge_to_a_node_that_is_still_open_or_unknown_is_lost)
{
    DotNode *other = graph.createNode(graph.root(), {}, u"m"_s);
    DotEdge *edge = graph.createEdge(node, other, {});
    device.beginEdge(edge);
    device.connect(edge, node, node);
    device.connect(edge, node, other);
    device.connect(edge, nullptr, nullptr);
    device.endEdge();
    finish();
    EXPECT_FALSE(bytes.contains("->"));
}

TEST_F(XDotDrawing, parallel_edges_are_written_each)
{
    DotEdge *first = graph.createEdge(node, node, {});
    DotEdge *second = graph.createEdge(node, node, {});
    device.endNode();
    for (DotEdge *edge : {first, second}) {
        device.beginEdge(edge);
        device.connect(edge, node, node);
        device.endEdge();
    }
    write();
    EXPECT_EQ(bytes.count("n -> n [label=\"\"];"), 2);
}

TEST_F(XDotDrawing, an_edge_that_draws_nothing_has_an_empty_label_and_is_replayed)
{
    DotEdge *edge = graph.createEdge(node, node, {});
    device.endNode();
    device.beginEdge(edge);
    device.connect(edge, node, node);
    device.endEdge();
    write();
    EXPECT_TRUE(bytes.contains("\n  n -> n [label=\"\"];\n")) << bytes.toStdString();
    XDot again(folder.filePath(u"again.xdot"_s));
    EXPECT_EQ(Graphviz::XDotRender(&again, written.get()).render(bytes), u""_s);
}

TEST_F(XDotDrawing, an_object_that_is_still_open_is_not_in_the_file)
{
    device.drawPolyline({{1, 0}}, nullptr);
    write();
    EXPECT_EQ(written->findNode(u"n"_s), nullptr);
}

TEST_F(XDotDrawing, more_ends_than_begins_do_no_harm)
{
    device.drawPolyline({}, black);
    device.endNode();
    device.endNode();
    device.endEdge();
    device.endCluster();
    device.beginNode(nullptr);
    write();
    EXPECT_TRUE(written->findNode(u"n"_s));
}

TEST_F(XDotDrawing, huge_coordinates_saturate)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    device.drawPolyline({{lowest, lowest}, {highest, highest}}, nullptr);
    device.drawEllipse({highest, lowest}, highest, highest, nullptr, nullptr);
    device.drawEllipse({lowest, highest}, lowest, lowest, nullptr, nullptr);
    device.drawText({highest, highest}, device.text(u"x\ny"_s, arial, red));
    EXPECT_TRUE(drawn().startsWith(u"L 2 -2147483648 2147483647 2147483647 -2147483547  e "_s));
    EXPECT_EQ(value(u"width"_s), u"5.96523e+07"_s); // 2^32 / 72
}

TEST(XDotObject, rectangles_are_united_as_the_toolkit_does)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> coordinate(-4, 4);
    for (int i = 0; i < 10000; ++i) {
        const auto any = [&] {
            QRect rect;
            const int left = coordinate(random);
            const int top = coordinate(random);
            rect.setCoords(left, top, left + coordinate(random), top + coordinate(random));
            return rect;
        };
        XDotObject object;
        object.bounds = any();
        const QRect other = any();
        const QRect expected = object.bounds | other;
        object.includeRect(other);
        ASSERT_EQ(object.bounds, expected);
    }
}

TEST(XDot, reports_a_file_that_cannot_be_written)
{
    for (const QString &path : {u"/dev/null/out.xdot"_s, u"/dev/full"_s}) {
        XDot device(path);
        device.begin(10, 10);
        EXPECT_EQ(device.end(), u"Unable to write to file\n"_s);
    }
}

TEST(XDot, asks_for_objects_and_expanders)
{
    const XDot device{QString()};
    EXPECT_TRUE(device.supportsObjects());
    EXPECT_TRUE(device.supportsExpanders());
}
