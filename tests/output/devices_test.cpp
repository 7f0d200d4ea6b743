// One drawing on every picture device, judged by a reader that is not ours.

#include "drawn.h"
#include "raster.h"
#include "reference_drawing.h"
#include "support/golden.h"

#include <QProcess>
#include <QStandardPaths>

#include <cmath>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// The SVG as another program renders it; null if that program is not there.
QImage rendered(const QByteArray &svg)
{
    const QString program = QStandardPaths::findExecutable(u"rsvg-convert"_s);
    if (program.isEmpty())
        return {};
    QProcess process;
    process.start(program, {u"--format=png"_s});
    process.write(svg);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QImage::fromData(process.readAllStandardOutput());
}

// The mean colour of the cell of 10 by 10 pixels.
std::array<double, 3> meanColor(const QImage &image, int cellX, int cellY)
{
    std::array<double, 3> sum{};
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 10; ++x) {
            const QColor pixel = image.pixelColor(cellX * 10 + x, cellY * 10 + y);
            sum[0] += pixel.red() / 100.0;
            sum[1] += pixel.green() / 100.0;
            sum[2] += pixel.blue() / 100.0;
        }
    }
    return sum;
}

double distance(const std::array<double, 3> &a, const std::array<double, 3> &b)
{
    double most = 0;
    for (size_t i = 0; i < a.size(); ++i)
        most = std::max(most, std::fabs(a.at(i) - b.at(i)));
    return most;
}

} // namespace

TEST(Devices, another_program_renders_the_svg_as_the_raster_device_paints_it)
{
    QByteArray svg;
    {
        SvgRichText device(&svg);
        drawReference(device);
        ASSERT_EQ(device.end(), QString());
    }
    const QTemporaryDir folder;
    const QString name = folder.filePath(u"a.png"_s);
    File device(name);
    drawReference(device);
    ASSERT_EQ(device.end(), QString());
    const QImage raster(name);
    const QImage vector = rendered(svg);
    if (qEnvironmentVariableIsSet("ORR_KEEP_PICTURES")) {
        raster.save(qEnvironmentVariable("ORR_KEEP_PICTURES") + u"/raster.png"_s);
        vector.save(qEnvironmentVariable("ORR_KEEP_PICTURES") + u"/vector.png"_s);
    }
    if (vector.isNull())
        FAIL() << "rsvg-convert is not installed";
    ASSERT_EQ(vector.size(), QSize(420, 330));
    for (int y = 0; y < 33; ++y) {
        for (int x = 0; x < 42; ++x) {
            EXPECT_LT(distance(meanColor(raster, x, y), meanColor(vector, x, y)), 40)
                << "at " << x * 10 << "," << y * 10;
        }
    }
}

TEST(Devices, another_program_finds_the_texts_of_the_svg)
{
    const QByteArray with = document([](Svg &device) {
        device.drawText({10, 5}, device.text(u"label"_s, nullptr, device.color(u"red"_s)));
    });
    const QByteArray without = document([](Svg &) {});
    const QImage picture = rendered(with);
    if (picture.isNull())
        FAIL() << "rsvg-convert is not installed";
    EXPECT_EQ(picture.size(), QSize(100, 50));
    EXPECT_NE(picture, rendered(without));
}

TEST(Devices, another_program_reads_every_rich_text)
{
    for (const QString &html :
         {u"<b>a</b>&#1;<i>b</i>"_s, u"<table border=1><tr><td>x<td>y</table><hr>"_s,
          u"<img "
          u"src='data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR4"
          "2mNk+M9QDwADhgGAWjR9awAAAABJRU5ErkJggg=='>image"_s}) {
        const QByteArray svg = document([&](Svg &device) {
            device.drawRichText({10, 5}, device.text(html, nullptr, device.color(u"red"_s)));
        });
        const QImage picture = rendered(svg);
        if (picture.isNull())
            FAIL() << "rsvg-convert is not installed";
        EXPECT_NE(picture, rendered(document([](Svg &) {}))) << html.toStdString();
    }
}
