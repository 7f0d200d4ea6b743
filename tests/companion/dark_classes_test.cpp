// What of a drawing gets a class for a dark page, and which colour the class has there.
#include "companion/page/dark_classes.h"

#include "companion/page/dark_colors.h"
#include "companion/page/svg_shape.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace ORR::Companion;

// The parts of a drawing of 100 by 100.
struct Dark
{
    explicit Dark(const QByteArray &parts, const std::vector<QPoint> &middles = {},
                  bool edgesHaveFills = false)
    {
        drawing = "<svg id=\"drawing\" width=\"100\" height=\"100\">" + parts + "</svg>";
        rules = addDarkClasses(&drawing, middles, edgesHaveFills);
        drawing.remove(0, drawing.indexOf('>') + 1);
        drawing.chop(6);
    }

    QByteArray drawing;
    QByteArray rules;
};

QByteArray node(const QByteArray &parts)
{
    return "<g data-kind=\"node\" data-id=\"a\">" + parts + "</g>";
}

QByteArray edge(const QByteArray &parts)
{
    return "<g data-kind=\"edge\" data-id=\"a>b fill='x'\">" + parts + "</g>";
}

const QByteArray square = "<polygon points=\"10,10 50,10 50,50 10,50\" stroke=\"#000000\"";
const QByteArray lightFill = square + " fill=\"#ffff00\"/>";
const QByteArray blackText = "<text x=\"1\" y=\"1\" fill=\"#000000\" font-size=\"9\">a</text>";

SvgShape shapeOfTag(const char *text)
{
    return shapeOf(nextTag(text, 0), {});
}

} // namespace

TEST(DarkClasses, texts_and_lines_on_the_page_turn)
{
    const Dark dark(node(blackText)
                        + edge("<path d=\"M 1 1 L 9 9\" fill=\"none\" stroke=\"#000000\"/>"),
                    {{60, 60}});
    EXPECT_EQ(
        dark.drawing,
        node("<text x=\"1\" y=\"1\" fill=\"#000000\" font-size=\"9\" class=\"d0\">a</text>")
            + edge("<path d=\"M 1 1 L 9 9\" fill=\"none\" stroke=\"#000000\" class=\"d1\"/>"));
    EXPECT_EQ(dark.rules,
              "@media screen{[data-theme=dark] .d0{fill:#e6e6e6}"
              "[data-theme=dark] .d1{stroke:#e6e6e6}}\n");
}

TEST(DarkClasses, what_lies_on_a_fill_stays)
{
    const QByteArray parts = node(lightFill + blackText)
        + edge("<polyline points=\"12,12 40,40\" fill=\"none\" stroke=\"#000000\"/>");
    EXPECT_EQ(Dark(parts, {{30, 30}}).rules, "");
    EXPECT_EQ(Dark(parts, {{30, 30}}).drawing, parts);
}

TEST(DarkClasses, text_goes_by_its_middle_and_by_what_was_drawn_before)
{
    EXPECT_NE(Dark(node(lightFill + blackText), {{51, 30}}).rules, "");
    EXPECT_NE(Dark(node(blackText + lightFill), {{30, 30}}).rules, "");
    EXPECT_NE(Dark(node(square + " fill=\"none\"/>" + blackText), {{30, 30}}).rules, "");
    EXPECT_NE(
        Dark(node(square + " fill=\"#ffff00\" fill-opacity=\"0.5\"/>" + blackText), {{30, 30}})
            .rules,
        "");
}

TEST(DarkClasses, text_with_too_little_contrast_on_its_fill_gets_more)
{
    const QByteArray grey = "<text fill=\"#888888\" font-size=\"9\">a</text>";
    const Dark dark(node(square + " fill=\"#999999\"/>" + grey), {{30, 30}});
    ASSERT_TRUE(dark.rules.startsWith("@media screen{[data-theme=dark] .d0{fill:#"))
        << dark.rules.toStdString();
    const auto color = DarkColor::of(dark.rules.sliced(dark.rules.indexOf('#'), 7));
    EXPECT_GE(contrastOf(color->luminance(), DarkColor::of("#999999")->luminance()), 4.5);
    EXPECT_EQ(Dark(node(square + " fill=\"url(#Gradient1)\"/>" + grey), {{30, 30}}).rules, "");
}

TEST(DarkClasses, line_over_page_and_fill_gets_no_lighter_than_both_allow)
{
    const Dark dark(node(lightFill)
                    + edge("<polyline points=\"30,30 90,90\" fill=\"none\" stroke=\"#0000ff\"/>"));
    const auto color = DarkColor::of(dark.rules.sliced(dark.rules.indexOf('#'), 7));
    ASSERT_TRUE(color);
    EXPECT_NEAR(contrastOf(color->luminance(), darkPageLuminance), 4.2, 0.3);
    EXPECT_EQ(color->blue, 1);
}

TEST(DarkClasses, heads_of_lines_turn_and_squares_of_a_matrix_do_not)
{
    const QByteArray head = edge(square + " fill=\"#000000\"/>");
    EXPECT_EQ(Dark(head).rules,
              "@media screen{[data-theme=dark] .d0{fill:#e6e6e6;stroke:#e6e6e6}}\n");
    EXPECT_EQ(Dark(head, {}, true).rules, "");
}

TEST(DarkClasses, parts_of_rich_texts_have_paint_and_place_of_their_groups)
{
    const QByteArray text = "<text x=\"0\" y=\"10\" font-size=\"9\">a</text>";
    const auto rich = [&](const QByteArray &parts) {
        return node(lightFill
                    + "<g transform=\"translate(20,20)\"><g fill=\"#000000\" "
                      "transform=\"matrix(1,0,0,1,5,5)\">"
                    + parts + "</g></g>");
    };
    EXPECT_EQ(Dark(rich(text)).rules, "");
    const QByteArray outside = QByteArray(text).replace("x=\"0\"", "x=\"30\"");
    EXPECT_EQ(Dark(rich(outside)).rules, "@media screen{[data-theme=dark] .d0{fill:#e6e6e6}}\n");
    EXPECT_EQ(
        Dark(rich("<rect x=\"28\" y=\"0\" width=\"20\" height=\"20\" fill=\"#ffffff\"/>" + outside))
            .rules,
        "");
}

TEST(DarkClasses, definitions_and_what_texts_say_are_no_parts)
{
    const QByteArray parts =
        node("<defs>" + lightFill
             + "</defs><text fill=\"#ffffff\" font-family=\"x fill='#000000'\" "
               "font-size=\"9\">&lt;g&gt;</text>");
    EXPECT_EQ(Dark(parts, {{30, 30}}).drawing, parts);
}

TEST(DarkColors, mixtures_keep_hue_and_reach_their_contrast)
{
    const DarkColor red = lightened(*DarkColor::of("#800000"), 0, 4.5);
    EXPECT_GT(red.red, red.green);
    EXPECT_EQ(red.green, red.blue);
    EXPECT_GE(contrastOf(red.luminance(), darkPageLuminance), 4.5);
    EXPECT_EQ(lightened(*DarkColor::of("#000000"), 0, 30).text(), "#ffffff");
    EXPECT_FALSE(DarkColor::of("none"));
    EXPECT_FALSE(DarkColor::of("#12345g"));
    for (const double below : {0.0, 0.18, 0.5, 1.0}) {
        const DarkColor other = readableOn(below, *DarkColor::of("#808080"), 4.5);
        EXPECT_GE(contrastOf(other.luminance(), below), 4.5) << below;
    }
}

TEST(SvgShape, outlines_hold_their_points)
{
    EXPECT_TRUE(shapeOfTag("<ellipse cx=\"10\" cy=\"10\" rx=\"8\" ry=\"4\"/>").contains({17, 10}));
    EXPECT_FALSE(shapeOfTag("<ellipse cx=\"10\" cy=\"10\" rx=\"8\" ry=\"4\"/>").contains({17, 13}));
    EXPECT_FALSE(shapeOfTag("<polygon points=\"0,0 10,0 0,10\"/>").contains({8, 8}));
    // A quarter of a ring around the origin, between the radii 5 and 10.
    const SvgShape ring =
        shapeOfTag("<path d=\"M 5 0 L 10 0 A 10 10 0 0 1 0 10 L 0 5 A 5 5 0 0 0 5 0 Z\"/>");
    EXPECT_TRUE(ring.contains({5.3, 5.3}));
    EXPECT_FALSE(ring.contains({3, 3}));
    EXPECT_FALSE(ring.contains({8, 8}));
    EXPECT_NEAR(ring.box.right(), 10, 0.01);
    EXPECT_TRUE(shapeOfTag("<path d=\"M 0 0 C 0 20, 20 20, 20 0\"/>").contains({10, 10}));
    EXPECT_TRUE(shapeOfTag("<path d=\"\"/>").outline.isEmpty());
    EXPECT_TRUE(std::isfinite(shapeOfTag("<path d=\"M nan 1e999 L x Y\"/>").box.width()));
}
