// An image at another scale and on another background.
#include "raster.h"
#include "support/golden.h"

#include <QBuffer>

#include <cmath>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// The file that `draw(device)` gives on a page of 40 by 20.
template <typename Draw>
QByteArray fileOf(const QString &name, const DrawingExtras &extras, Draw draw,
                  QSize page = {40, 20})
{
    QByteArray bytes;
    File device({&bytes, name}, -1, extras);
    device.begin(page.width(), page.height());
    draw(device);
    EXPECT_EQ(device.end(), QString());
    return bytes;
}

const auto nothingDrawn = [](File &) {};

void drawCircle(File &device)
{
    device.drawEllipse({10, 10}, 8, 8, device.pen(device.color(u"none"_s), 0, 1),
                       device.color(u"red"_s));
}

void drawWord(File &device)
{
    device.drawText({2, 2}, device.text(u"Word"_s, nullptr, device.color(u"black"_s)));
}

// The rows and columns that are painted on.
QRect paintedPart(const QImage &image)
{
    QRect part;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() > 127)
                part |= QRect(x, y, 1, 1);
        }
    }
    return part;
}

int partlyPainted(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int alpha = image.pixelColor(x, y).alpha();
            count += alpha > 0 && alpha < 255;
        }
    }
    return count;
}

} // namespace

TEST(RasterExtras, that_say_nothing_change_nothing)
{
    for (const QString &name : {u"a.png"_s, u"a.jpg"_s}) {
        QByteArray plain;
        File device({&plain, name});
        device.begin(40, 20);
        drawCircle(device);
        EXPECT_EQ(device.end(), QString());
        EXPECT_EQ(fileOf(name, {.scale = 1.0}, drawCircle), plain);
    }
}

TEST(RasterExtras, a_scale_is_of_the_pixels_and_of_the_resolution)
{
    for (const QString &name : {u"a.png"_s, u"a.jpg"_s}) {
        for (const double scale : {0.5, 1.0, 2.0, 2.5}) {
            const QImage image = QImage::fromData(fileOf(name, {.scale = scale}, nothingDrawn));
            EXPECT_EQ(image.size(), QSize(int(40 * scale), int(20 * scale)));
            const double perInch = image.dotsPerMeterX() * 0.0254;
            EXPECT_EQ(std::lround(perInch), std::lround(72 * scale)) << name.toStdString();
            EXPECT_EQ(image.dotsPerMeterY(), image.dotsPerMeterX());
        }
    }
}

TEST(RasterExtras, a_larger_image_is_drawn_and_not_enlarged)
{
    const QImage small = QImage::fromData(fileOf(u"a.png"_s, {}, drawCircle));
    const QImage large = QImage::fromData(fileOf(u"a.png"_s, {.scale = 8}, drawCircle));
    EXPECT_EQ(paintedPart(large).width(), 128);
    // An outline is twice as long at twice the size; its seam of half painted pixels would be four
    // times as many, enlarged.
    EXPECT_LT(partlyPainted(large), 12 * partlyPainted(small));
    EXPECT_GT(partlyPainted(large), 4 * partlyPainted(small));
}

TEST(RasterExtras, text_has_its_size_at_every_scale)
{
    const QRect small = paintedPart(QImage::fromData(fileOf(u"a.png"_s, {}, drawWord)));
    const QRect large = paintedPart(QImage::fromData(fileOf(u"a.png"_s, {.scale = 4}, drawWord)));
    EXPECT_NEAR(large.width(), small.width() * 4, 6);
    EXPECT_NEAR(large.height(), small.height() * 4, 6);
}

TEST(RasterExtras, a_scale_goes_no_further_than_images_do)
{
    const QImage image =
        QImage::fromData(fileOf(u"a.png"_s, {.scale = 100}, nothingDrawn, {1000, 10}));
    EXPECT_EQ(image.size(), QSize(32767, 327));
    EXPECT_NEAR(image.dotsPerMeterX(), 2835 * 32.767, 1);
    QByteArray bytes;
    File tiny({&bytes, u"a.png"_s}, -1, {.scale = 0.01});
    tiny.begin(40, 20);
    EXPECT_EQ(tiny.end(), u"Could not save image to file\n"_s);
}

TEST(RasterExtras, a_background_lies_below_all_of_it)
{
    const auto corner = [](const QString &name, const QString &background) {
        const QImage image =
            QImage::fromData(fileOf(name, {.scale = 1.7, .background = background}, drawCircle));
        EXPECT_EQ(image.size(), QSize(68, 34));
        EXPECT_NEAR(image.pixelColor(17, 17).red(), 255, 16); // of a JPEG
        return image.pixelColor(67, 33);
    };
    EXPECT_EQ(corner(u"a.png"_s, u"lime"_s), QColor(0, 255, 0));
    EXPECT_EQ(corner(u"a.png"_s, u"#0000ff80"_s), QColor(0, 0, 255, 128));
    EXPECT_EQ(corner(u"a.png"_s, u"none"_s).alpha(), 0);
    // On the white that a JPEG has.
    const QColor mixed = corner(u"a.jpg"_s, u"#0000ff80"_s);
    EXPECT_NEAR(mixed.red(), 127, 4);
    EXPECT_NEAR(mixed.blue(), 255, 4);
}
