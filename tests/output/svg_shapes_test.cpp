#include "drawn.h"
#include "support/golden.h"

#include <limits>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

constexpr int highest = std::numeric_limits<int>::max();
constexpr int lowest = std::numeric_limits<int>::min();

Device::Pen *thinRed(Device &device)
{
    return device.pen(device.color(u"#FF0000"_s), Device::Pen::Solid, 1);
}

// The square that most tests paint, with the attributes behind its geometry.
QByteArray square(const QByteArray &attributes)
{
    return " <rect x=\"0\" y=\"0\" width=\"9\" height=\"9\"" + attributes + "/>\n";
}

QByteArray filled(const QString &fillName)
{
    return drawn([&](Svg &device) {
        device.drawRect({0, 0}, {9, 9}, 0, thinRed(device), device.color(fillName));
    });
}

QByteArray stroked(const QString &colorName, int style, int width)
{
    return drawn([&](Svg &device) {
        device.drawRect({0, 0}, {9, 9}, 0, device.pen(device.color(colorName), style, width),
                        nullptr);
    });
}

} // namespace

TEST(SvgShapes, begin_and_end_frame_the_document)
{
    const QByteArray bytes = document<Svg>([](Svg &) {});
    EXPECT_EQ(bytes,
              QByteArray("<?xml version=\"1.0\"?>\n"
                         "<svg width=\"100\" height=\"50\" xmlns=\"http://www.w3.org/2000/svg\""
                         " version=\"1.1\">\n"
                         "</svg>\n"));
}

TEST(SvgShapes, a_bezier_keeps_its_curves)
{
    const QByteArray bytes = drawn([](Svg &device) {
        device.drawBezier({{0, 1}, {2, 3}, {4, 5}, {6, 7}, {8, 9}, {10, 11}, {12, 13}},
                          thinRed(device), nullptr);
    });
    EXPECT_EQ(bytes,
              QByteArray(" <path d=\"M 0 1 C 2 3, 4 5, 6 7 C 8 9, 10 11, 12 13\""
                         " stroke=\"#ff0000\" fill=\"none\"/>\n"));
}

TEST(SvgShapes, a_bezier_drops_points_that_make_no_curve)
{
    const QByteArray bytes = drawn([](Svg &device) {
        device.drawBezier({{0, 1}, {2, 3}, {4, 5}, {6, 7}, {8, 9}}, thinRed(device), nullptr);
        device.drawBezier({{0, 1}, {2, 3}, {4, 5}}, thinRed(device), nullptr);
        device.drawBezier({}, thinRed(device), nullptr);
    });
    EXPECT_EQ(bytes,
              QByteArray(" <path d=\"M 0 1 C 2 3, 4 5, 6 7\" stroke=\"#ff0000\" fill=\"none\"/>\n"
                         " <path d=\"M 0 1\" stroke=\"#ff0000\" fill=\"none\"/>\n"
                         " <path d=\"\" stroke=\"#ff0000\" fill=\"none\"/>\n"));
}

TEST(SvgShapes, an_ellipse_has_centre_and_radii)
{
    const QByteArray bytes = drawn([](Svg &device) {
        device.drawEllipse({50, 40}, 30, 20, thinRed(device), device.color(u"blue"_s));
    });
    EXPECT_EQ(bytes,
              QByteArray(" <ellipse cx=\"50\" cy=\"40\" rx=\"30\" ry=\"20\""
                         " stroke=\"#ff0000\" fill=\"#0000ff\"/>\n"));
}

TEST(SvgShapes, a_polyline_is_never_filled)
{
    const QByteArray bytes = drawn([](Svg &device) {
        device.drawPolyline({{0, 1}, {-2, 3}, {4, 5}}, thinRed(device));
        device.drawPolyline({}, thinRed(device));
    });
    EXPECT_EQ(bytes,
              QByteArray(" <polyline points=\"0,1 -2,3 4,5\" stroke=\"#ff0000\" fill=\"none\"/>\n"
                         " <polyline points=\"\" stroke=\"#ff0000\" fill=\"none\"/>\n"));
}

TEST(SvgShapes, a_polygon_lists_its_points)
{
    const QByteArray bytes = drawn([](Svg &device) {
        device.drawPolygon({{0, 1}, {2, 3}, {4, 5}}, thinRed(device), device.color(u"lime"_s));
    });
    EXPECT_EQ(
        bytes,
        QByteArray(" <polygon points=\"0,1 2,3 4,5\" stroke=\"#ff0000\" fill=\"#00ff00\"/>\n"));
}

TEST(SvgShapes, a_rect_is_as_large_as_its_corners_are_apart)
{
    const QByteArray bytes = drawn([](Svg &device) {
        device.drawRect({10, 20}, {40, 25}, 0, thinRed(device), nullptr);
        device.drawRect({10, 20}, {40, 25}, 3, thinRed(device), nullptr);
    });
    EXPECT_EQ(bytes,
              QByteArray(" <rect x=\"10\" y=\"20\" width=\"30\" height=\"5\""
                         " stroke=\"#ff0000\" fill=\"none\"/>\n"
                         " <rect x=\"10\" y=\"20\" width=\"30\" height=\"5\" rx=\"3\""
                         " stroke=\"#ff0000\" fill=\"none\"/>\n"));
}

TEST(SvgShapes, sizes_that_no_int_holds_become_the_nearest)
{
    const QByteArray bytes = drawn([](Svg &device) {
        device.drawRect({lowest, highest}, {highest, lowest}, 0, thinRed(device), nullptr);
    });
    EXPECT_EQ(bytes,
              QByteArray(" <rect x=\"-2147483648\" y=\"2147483647\" width=\"2147483647\""
                         " height=\"-2147483648\" stroke=\"#ff0000\" fill=\"none\"/>\n"));
}

TEST(SvgShapes, the_literal_white_fill_is_none)
{
    EXPECT_EQ(filled(u"#FFFFFF"_s), square(" stroke=\"#ff0000\" fill=\"none\""));
    EXPECT_EQ(filled(u"#ffFFff"_s), square(" stroke=\"#ff0000\" fill=\"none\""));
}

TEST(SvgShapes, the_name_white_does_fill)
{
    EXPECT_EQ(filled(u"white"_s), square(" stroke=\"#ff0000\" fill=\"#ffffff\""));
}

TEST(SvgShapes, colours_are_in_lower_case)
{
    EXPECT_EQ(filled(u"#FF00AA"_s), square(" stroke=\"#ff0000\" fill=\"#ff00aa\""));
    EXPECT_EQ(filled(u"red"_s), square(" stroke=\"#ff0000\" fill=\"#ff0000\""));
}

TEST(SvgShapes, an_alpha_stands_before_its_colour)
{
    EXPECT_EQ(filled(u"#FF000080"_s),
              square(" stroke=\"#ff0000\" fill-opacity=\"0.501961\" fill=\"#ff0000\""));
    EXPECT_EQ(stroked(u"#00FF0040"_s, 0, 1),
              square(" stroke-opacity=\"0.25098\" stroke=\"#00ff00\" fill=\"none\""));
}

TEST(SvgShapes, the_colour_none_is_transparent_black)
{
    EXPECT_EQ(filled(u"none"_s), square(" stroke=\"#ff0000\" fill-opacity=\"0\" fill=\"#000000\""));
}

TEST(SvgShapes, a_colour_that_does_not_parse_is_black)
{
    EXPECT_EQ(filled(u"no \"such\" <colour>"_s), square(" stroke=\"#ff0000\" fill=\"#000000\""));
}

TEST(SvgShapes, a_pen_of_width_1_has_no_stroke_width)
{
    EXPECT_EQ(stroked(u"black"_s, 0, 1), square(" stroke=\"#000000\" fill=\"none\""));
    EXPECT_EQ(stroked(u"black"_s, 0, 0), square(" stroke=\"#000000\" fill=\"none\""));
    EXPECT_EQ(stroked(u"black"_s, 0, 2),
              square(" stroke=\"#000000\" stroke-width=\"2\" fill=\"none\""));
}

TEST(SvgShapes, dashes_follow_the_width)
{
    EXPECT_EQ(stroked(u"black"_s, Device::Pen::Dashed, 3),
              square(" stroke=\"#000000\" stroke-width=\"3\" stroke-dasharray=\"5\""
                     " fill=\"none\""));
    EXPECT_EQ(stroked(u"black"_s, Device::Pen::Dotted, 1),
              square(" stroke=\"#000000\" stroke-dasharray=\"1,3\" fill=\"none\""));
    EXPECT_EQ(stroked(u"black"_s, 7, 1), square(" stroke=\"#000000\" fill=\"none\""));
}

TEST(SvgShapes, a_pen_or_pen_colour_never_set_strokes_nothing)
{
    const QByteArray bytes = drawn([](Svg &device) {
        device.drawRect({0, 0}, {9, 9}, 0, nullptr, nullptr);
        device.drawRect({0, 0}, {9, 9}, 0, device.pen(nullptr, Device::Pen::Dashed, 2), nullptr);
    });
    EXPECT_EQ(bytes,
              square(" stroke=\"none\" fill=\"none\"")
                  + square(" stroke=\"none\" stroke-width=\"2\" stroke-dasharray=\"5\""
                           " fill=\"none\""));
}

TEST(SvgShapes, a_linear_gradient_is_defined_before_its_element)
{
    const QByteArray bytes = drawn([](Svg &device) {
        Device::Color *fill =
            device.linearGradient({0.5, 1}, {9, 2.25}, {u"red"_s, u"#0000FF80"_s}, {0, 1});
        device.drawRect({0, 0}, {9, 9}, 0, thinRed(device), fill);
    });
    EXPECT_EQ(bytes,
              "<linearGradient x1=\"0.5\" y1=\"1\" x2=\"9\" y2=\"2.25\" id=\"Gradient1\""
              " gradientUnits=\"userSpaceOnUse\">\n"
              "<stop offset=\"0\" stop-color=\"#ff0000\"/>\n"
              "<stop offset=\"1\" stop-opacity=\"0.501961\" stop-color=\"#0000ff\"/>\n"
              "</linearGradient>\n"
                  + square(" stroke=\"#ff0000\" fill=\"url(#Gradient1)\""));
}

TEST(SvgShapes, a_radial_gradient_has_focus_centre_and_radius)
{
    const QByteArray bytes = drawn([](Svg &device) {
        Device::Color *fill =
            device.radialGradient({1, 2}, 3, {4, 5}, 6.5, {u"red"_s, u"blue"_s}, {0.25, 1});
        device.drawRect({0, 0}, {9, 9}, 0, thinRed(device), fill);
    });
    EXPECT_EQ(bytes,
              "<radialGradient fx=\"1\" fy=\"2\" cx=\"4\" cy=\"5\" r=\"6.5\" id=\"Gradient1\""
              " gradientUnits=\"userSpaceOnUse\">\n"
              "<stop offset=\"0.25\" stop-color=\"#ff0000\"/>\n"
              "<stop offset=\"1\" stop-color=\"#0000ff\"/>\n"
              "</radialGradient>\n"
                  + square(" stroke=\"#ff0000\" fill=\"url(#Gradient1)\""));
}

TEST(SvgShapes, each_use_of_a_gradient_writes_a_definition)
{
    const QByteArray bytes = drawn([](Svg &device) {
        Device::Color *fill = device.linearGradient({0, 0}, {9, 0}, {u"red"_s, u"blue"_s}, {0, 1});
        device.drawEllipse({5, 5}, 2, 2, thinRed(device), fill);
        device.drawPolygon({{0, 0}, {9, 0}, {9, 9}}, thinRed(device), fill);
    });
    EXPECT_EQ(bytes.count("<linearGradient "), 2);
    EXPECT_EQ(bytes.count("id=\"Gradient1\""), 1);
    EXPECT_EQ(bytes.count("id=\"Gradient2\""), 1);
    EXPECT_LT(bytes.indexOf("url(#Gradient1)"), bytes.indexOf("id=\"Gradient2\""));
    EXPECT_LT(bytes.indexOf("id=\"Gradient2\""), bytes.indexOf("url(#Gradient2)"));
}

TEST(SvgShapes, a_gradient_that_starts_white_is_defined_and_not_used)
{
    const QByteArray bytes = drawn([](Svg &device) {
        Device::Color *fill =
            device.linearGradient({0, 0}, {9, 0}, {u"#FFFFFF"_s, u"blue"_s}, {0, 1});
        device.drawRect({0, 0}, {9, 9}, 0, thinRed(device), fill);
    });
    EXPECT_EQ(bytes.count("<linearGradient "), 1);
    EXPECT_TRUE(bytes.endsWith(square(" stroke=\"#ff0000\" fill=\"none\"")));
}

TEST(SvgShapes, a_pen_in_a_gradient_takes_the_last_definition)
{
    const QByteArray bytes = drawn([](Svg &device) {
        Device::Color *gradient =
            device.linearGradient({0, 0}, {9, 0}, {u"red"_s, u"blue"_s}, {0, 1});
        Device::Pen *pen = device.pen(gradient, 0, 1);
        device.drawPolyline({{0, 0}}, pen);
        device.drawPolygon({{0, 0}}, pen, gradient);
    });
    EXPECT_TRUE(
        bytes.startsWith(" <polyline points=\"0,0\" stroke=\"url(#Gradient0)\" fill=\"none\"/>\n"));
    EXPECT_TRUE(bytes.endsWith(" <polygon points=\"0,0\" stroke=\"url(#Gradient1)\""
                               " fill=\"url(#Gradient1)\"/>\n"));
}

TEST(SvgShapes, a_gradient_without_stops_is_still_a_gradient)
{
    const QByteArray bytes = drawn([](Svg &device) {
        device.drawRect({0, 0}, {9, 9}, 0, thinRed(device),
                        device.linearGradient({0, 0}, {1, 1}, {}, {}));
    });
    EXPECT_EQ(bytes,
              "<linearGradient x1=\"0\" y1=\"0\" x2=\"1\" y2=\"1\" id=\"Gradient1\""
              " gradientUnits=\"userSpaceOnUse\">\n</linearGradient>\n"
                  + square(" stroke=\"#ff0000\" fill=\"url(#Gradient1)\""));
}

TEST(SvgShapes, there_is_no_object_protocol)
{
    DotGraph graph;
    const QByteArray bytes = drawn([&](Svg &device) {
        EXPECT_FALSE(device.supportsObjects());
        EXPECT_FALSE(device.supportsExpanders());
        device.beginCluster(nullptr, true);
        device.endNode();
        device.endEdge();
        device.endCluster();
        device.connect(nullptr, nullptr, nullptr);
    });
    EXPECT_EQ(bytes, QByteArray());
}
