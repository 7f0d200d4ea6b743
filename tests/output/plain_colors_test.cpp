// Colours on their way into a PNG file.
#include "output/plain_colors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

using namespace ORR::Graph;

namespace {

// A pixel of each alpha in each line; the channel grows along it and ends at alpha.
QImage allPremultipliedChannels()
{
    QImage image(256, 256, QImage::Format_ARGB32_Premultiplied);
    for (int alpha = 0; alpha < 256; ++alpha) {
        for (int x = 0; x < 256; ++x) {
            const int channel = std::min(x, alpha);
            image.setPixel(x, alpha, qRgba(channel, alpha - channel, channel / 2, alpha));
        }
    }
    return image;
}

int plainRed(int channel, int alpha)
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.setPixel(0, 0, qRgba(channel, 0, 0, alpha));
    makeColorsPlain(&image);
    return qRed(image.pixel(0, 0));
}

} // namespace

TEST(PlainColors, exact_halves_go_up)
{
    EXPECT_EQ(plainRed(96, 192), 128); // 127.5
    EXPECT_EQ(plainRed(1, 2), 128);
    EXPECT_EQ(plainRed(95, 192), 126); // 126.17
    EXPECT_EQ(plainRed(97, 192), 129); // 128.83
}

TEST(PlainColors, every_channel_of_every_alpha_is_rounded)
{
    const QImage before = allPremultipliedChannels();
    QImage plain = before;
    makeColorsPlain(&plain);
    ASSERT_EQ(plain.format(), QImage::Format_ARGB32);
    for (int alpha = 1; alpha < 256; ++alpha) {
        for (int channel = 0; channel <= alpha; ++channel) {
            const QRgb color = plain.pixel(channel, alpha);
            ASSERT_EQ(qRed(color), std::floor(channel * 255.0 / alpha + 0.5));
            ASSERT_EQ(qGreen(color), std::floor((alpha - channel) * 255.0 / alpha + 0.5));
            ASSERT_EQ(qAlpha(color), alpha);
        }
    }
}

TEST(PlainColors, at_most_one_away_from_the_conversion_of_the_toolkit)
{
    QImage plain = allPremultipliedChannels();
    const QImage converted = plain.convertToFormat(QImage::Format_ARGB32);
    makeColorsPlain(&plain);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            const QRgb a = plain.pixel(x, y);
            const QRgb b = converted.pixel(x, y);
            ASSERT_LE(std::abs(qRed(a) - qRed(b)), 1) << x << ',' << y;
            ASSERT_LE(std::abs(qGreen(a) - qGreen(b)), 1) << x << ',' << y;
            ASSERT_LE(std::abs(qBlue(a) - qBlue(b)), 1) << x << ',' << y;
            ASSERT_EQ(qAlpha(a), qAlpha(b)) << x << ',' << y;
        }
    }
}

TEST(PlainColors, nothing_and_a_channel_above_alpha_stay_in_range)
{
    EXPECT_EQ(plainRed(0, 0), 0);
    EXPECT_EQ(plainRed(200, 100), 255);
    EXPECT_EQ(plainRed(200, 255), 200);
}

TEST(PlainColors, resolution_stays_and_no_image_stays_none)
{
    QImage image(3, 2, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDotsPerMeterX(2835);
    makeColorsPlain(&image);
    EXPECT_EQ(image.dotsPerMeterX(), 2835);
    EXPECT_EQ(image.size(), QSize(3, 2));
    QImage none;
    makeColorsPlain(&none);
    EXPECT_TRUE(none.isNull());
}
