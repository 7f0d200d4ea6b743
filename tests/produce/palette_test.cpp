#include "companion/produce/palette.h"

#include "companion/produce/color_distance.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;

namespace {

double lightnessOf(const QByteArray &color)
{
    return labColor(linearColor(color)).lightness;
}

void expectToldApart(const QList<QByteArray> &fills)
{
    for (qsizetype i = 0; i < fills.size(); ++i) {
        for (qsizetype j = 0; j < i; ++j)
            EXPECT_GE(deuteranopeDistance(fills.at(i), fills.at(j)), 10)
                << fills.at(i).constData() << ' ' << fills.at(j).constData();
    }
}

} // namespace

// Pairs of the data that the authors of the paper have published to test implementations by.
TEST(ColorDistance, is_that_of_the_published_pairs)
{
    struct Pair
    {
        LabColor first;
        LabColor second;
        double distance;
    };
    const Pair pairs[] = {
        {{50, 2.6772, -79.7751}, {50, 0, -82.7485}, 2.0425},
        {{50, 0, 0}, {50, -1, 2}, 2.3669},
        {{50, 2.5, 0}, {73, 25, -18}, 27.1492},
        {{50, 2.5, 0}, {61, -5, 29}, 22.8977},
        {{50, 2.5, 0}, {56, -27, -3}, 31.9030},
        {{50, 2.5, 0}, {58, 24, 15}, 19.4535},
        {{2.0776, 0.0795, -1.1350}, {0.9033, -0.0636, -0.5514}, 0.9082},
        {{90.8027, -2.0831, 1.4410}, {91.1528, -1.6435, 0.0447}, 1.4441},
    };
    for (const Pair &pair : pairs) {
        EXPECT_NEAR(ciede2000(pair.first, pair.second), pair.distance, 0.0001);
        EXPECT_NEAR(ciede2000(pair.second, pair.first), pair.distance, 0.0001);
    }
}

TEST(ColorDistance, of_a_colour_from_itself_is_none)
{
    EXPECT_EQ(deuteranopeDistance("#8FB8DE", "#8FB8DE"), 0);
    EXPECT_EQ(deuteranopeDistance("#808080", "#808080"), 0);
}

TEST(ColorDistance, of_red_and_green_as_dark_is_small_without_cones_for_green)
{
    const QByteArray red = "#B05A50";
    const QByteArray green = "#7A7845";
    const double seen = ciede2000(labColor(linearColor(red)), labColor(linearColor(green)));
    EXPECT_GT(seen, 30);
    EXPECT_LT(deuteranopeDistance(red, green), 10);
}

TEST(Palette, has_fills_that_any_reader_tells_apart)
{
    const QList<QByteArray> &fills = kindFills();
    ASSERT_GE(fills.size(), 10);
    expectToldApart(fills);
    EXPECT_EQ(fills.constLast(), neutralFill());
}

TEST(Palette, has_scales_whose_steps_any_reader_tells_apart)
{
    for (const ColorScale scale : {ColorScale::Rising, ColorScale::Diverging}) {
        QList<QByteArray> steps = {unscaledFill()};
        for (int step = 0; step < scaleSteps; ++step)
            steps.append(scaleFill(scale, double(step) / (scaleSteps - 1)));
        expectToldApart(steps);
    }
}

TEST(Palette, is_light_enough_for_black_letters)
{
    QList<QByteArray> fills = kindFills();
    for (int i = 0; i <= 20; ++i)
        fills +=
            {scaleFill(ColorScale::Rising, i / 20.0), scaleFill(ColorScale::Diverging, i / 20.0)};
    for (const QByteArray &fill : std::as_const(fills)) {
        EXPECT_GE(contrast(fill, "#000000"), 4.5) << fill.constData();
        EXPECT_EQ(letterColor(fill), "#000000");
    }
    EXPECT_EQ(letterColor("#1F3A5F"), "#FFFFFF");
}

TEST(Palette, has_a_rising_scale_that_only_gets_darker)
{
    for (int i = 1; i <= 20; ++i)
        EXPECT_LT(lightnessOf(scaleFill(ColorScale::Rising, i / 20.0)),
                  lightnessOf(scaleFill(ColorScale::Rising, (i - 1) / 20.0)));
}

TEST(Palette, has_a_diverging_scale_that_is_lightest_in_the_middle)
{
    for (int i = 1; i <= 10; ++i) {
        EXPECT_GT(lightnessOf(scaleFill(ColorScale::Diverging, i / 20.0)),
                  lightnessOf(scaleFill(ColorScale::Diverging, (i - 1) / 20.0)));
        EXPECT_GT(lightnessOf(scaleFill(ColorScale::Diverging, 1 - i / 20.0)),
                  lightnessOf(scaleFill(ColorScale::Diverging, 1 - (i - 1) / 20.0)));
    }
    EXPECT_GE(deuteranopeDistance(scaleFill(ColorScale::Diverging, 0),
                                  scaleFill(ColorScale::Diverging, 1)),
              30);
}

TEST(Palette, ends_where_its_scales_end)
{
    EXPECT_EQ(scaleFill(ColorScale::Rising, -1), scaleFill(ColorScale::Rising, 0));
    EXPECT_EQ(scaleFill(ColorScale::Rising, 7), scaleFill(ColorScale::Rising, 1));
    EXPECT_EQ(scaleFill(ColorScale::Rising, std::numeric_limits<double>::quiet_NaN()),
              unscaledFill());
}
