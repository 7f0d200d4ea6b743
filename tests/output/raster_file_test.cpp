// The image file: its size, its background and the messages of `end`.

#include "raster.h"
#include "support/golden.h"

#include <QDir>
#include <QImageReader>

#include <limits>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

const auto nothing = [](File &) {};
constexpr int highest = std::numeric_limits<int>::max();
constexpr int lowest = std::numeric_limits<int>::min();

QString resultOf(int width, int height, const QString &name)
{
    File device(name);
    device.begin(width, height);
    device.drawRect({0, 0}, {5, 5}, 0, nullptr, device.color(u"red"_s));
    return device.end();
}

} // namespace

TEST(RasterFile, a_drawing_has_the_size_of_its_page)
{
    EXPECT_EQ(painted({30, 20}, nothing).size(), QSize(30, 20));
}

TEST(RasterFile, a_drawing_of_too_many_bytes_is_scaled_down)
{
    const QImage image = painted(
        {10000, 10000},
        [](File &device) {
            device.drawRect({0, 0}, {5000, 10000}, 0, device.pen(nullptr, 0, 1),
                            device.color(u"red"_s));
        },
        u"a.bmp"_s);
    ASSERT_EQ(image.size(), QSize(7071, 7071));
    EXPECT_EQ(image.pixelColor(3530, 10), QColor(Qt::red)); // 5000 * 0.7071 is 3535.5
    EXPECT_EQ(image.pixelColor(3540, 10), QColor(Qt::white));
}

TEST(RasterFile, a_drawing_with_a_long_side_is_scaled_down)
{
    EXPECT_EQ(painted({100000, 10}, nothing).size(), QSize(32767, 3));
    EXPECT_EQ(painted({10, 100000}, nothing).size(), QSize(3, 32767));
}

TEST(RasterFile, both_limits_may_apply)
{
    // 400,000 * 1,000 * 4 bytes ask for the scale 0.354, and the longer side for 0.0819.
    EXPECT_EQ(painted({400000, 1000}, nothing).size(), QSize(32767, 81));
}

TEST(RasterFile, a_page_at_the_limit_keeps_its_size)
{
    EXPECT_EQ(painted({32767, 2}, nothing).size(), QSize(32767, 2));
}

TEST(RasterFile, pages_without_an_image_cannot_be_saved)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(u"a.png"_s);
    for (const QSize page :
         {QSize(0, 0), QSize(0, 10), QSize(-5, 10), QSize(-10000, -10000), QSize(1, 2000000000),
          QSize(2000000000, 1), QSize(lowest, lowest), QSize(lowest, highest)}) {
        EXPECT_EQ(resultOf(page.width(), page.height(), name), u"Could not save image to file\n"_s)
            << page.width() << " by " << page.height();
    }
    EXPECT_FALSE(QFile::exists(name));
}

TEST(RasterFile, the_largest_page_of_all_is_scaled_down)
{
    EXPECT_EQ(painted({highest, highest}, nothing, u"a.bmp"_s).size(), QSize(7071, 7071));
}

TEST(RasterFile, an_end_without_a_begin_is_too_large)
{
    File device(u"a.png"_s);
    device.drawRect({0, 0}, {5, 5}, 0, nullptr, nullptr);
    EXPECT_EQ(device.end(), u"Draw too large\n"_s);
}

TEST(RasterFile, a_second_end_is_too_large)
{
    const QTemporaryDir folder;
    File device(folder.filePath(u"a.png"_s));
    device.begin(10, 10);
    EXPECT_EQ(device.end(), QString());
    device.drawRect({0, 0}, {5, 5}, 0, nullptr, nullptr);
    EXPECT_EQ(device.end(), u"Draw too large\n"_s);
    // Whether there was an image or not.
    device.begin(0, 10);
    EXPECT_EQ(device.end(), u"Could not save image to file\n"_s);
    EXPECT_EQ(device.end(), u"Draw too large\n"_s);
}

TEST(RasterFile, a_second_begin_starts_anew)
{
    const QImage image = painted({10, 10}, [](File &device) {
        device.drawRect({0, 0}, {9, 9}, 0, nullptr, device.color(u"red"_s));
        device.begin(20, 5);
    });
    EXPECT_EQ(image.size(), QSize(20, 5));
    EXPECT_EQ(image.pixelColor(5, 3).alpha(), 0);
}

TEST(RasterFile, a_png_is_transparent)
{
    const QImage image = painted({10, 10}, nothing);
    EXPECT_TRUE(image.hasAlphaChannel());
    EXPECT_EQ(image.pixelColor(5, 5).alpha(), 0);
}

TEST(RasterFile, a_jpeg_is_white)
{
    for (const QString &name : {u"a.jpg"_s, u"a.jpeg"_s, u"a.JPG"_s}) {
        const QImage image = painted({16, 16}, nothing, name);
        EXPECT_EQ(image.pixelColor(5, 5), QColor(Qt::white)) << name.toStdString();
    }
}

TEST(RasterFile, the_background_goes_by_the_case_of_the_suffix)
{
    EXPECT_EQ(painted({10, 10}, nothing, u"a.PNG"_s).pixelColor(5, 5), QColor(Qt::white));
    EXPECT_EQ(painted({10, 10}, nothing, u"apng"_s + u".bmp"_s).pixelColor(5, 5),
              QColor(Qt::white));
}

TEST(RasterFile, the_format_goes_by_the_suffix)
{
    const QTemporaryDir folder;
    for (const auto &[name, format] :
         {std::pair("a.png", "png"), std::pair("b.JPG", "jpeg"), std::pair("c.d.jpeg", "jpeg")}) {
        const QString path = folder.filePath(QString::fromLatin1(name));
        EXPECT_EQ(resultOf(10, 10, path), QString());
        EXPECT_EQ(QImageReader::imageFormat(path), QByteArray(format)) << name;
    }
}

TEST(RasterFile, an_unknown_suffix_cannot_be_saved)
{
    const QTemporaryDir folder;
    for (const QString &name : {u"a.xyz"_s, u"a"_s, u"png"_s, u"a."_s}) {
        const QString path = folder.filePath(name);
        EXPECT_EQ(resultOf(10, 10, path), u"Could not save image to file\n"_s)
            << name.toStdString();
        EXPECT_FALSE(QFile::exists(path)) << name.toStdString();
    }
    EXPECT_EQ(resultOf(10, 10, QString()), u"Could not save image to file\n"_s);
}

TEST(RasterFile, a_file_that_cannot_be_written_cannot_be_saved)
{
    EXPECT_EQ(resultOf(10, 10, u"/no/such/folder/a.png"_s), u"Could not save image to file\n"_s);
}

TEST(RasterFile, a_full_disk_cannot_be_saved_to)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(u"full.png"_s);
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, name));
    EXPECT_EQ(resultOf(10, 10, name), u"Could not save image to file\n"_s);
}

TEST(RasterFile, the_quality_reaches_the_format)
{
    const QTemporaryDir folder;
    qint64 lastSize = 0;
    for (const int quality : {5, 50, 100}) {
        const QString path = folder.filePath(u"a.jpg"_s);
        File device(path, quality);
        device.begin(100, 100);
        device.drawEllipse({50, 50}, 40, 30, nullptr, device.color(u"red"_s));
        EXPECT_EQ(device.end(), QString());
        const qint64 size = QFileInfo(path).size();
        EXPECT_GT(size, lastSize);
        lastSize = size;
    }
}

TEST(RasterFile, there_is_no_object_protocol)
{
    DotGraph graph;
    File device(u"a.png"_s);
    EXPECT_FALSE(device.supportsObjects());
    device.beginNode(nullptr);
    device.beginCluster(nullptr, true);
    device.connect(nullptr, nullptr, nullptr);
    device.endNode();
    device.endCluster();
    EXPECT_EQ(device.nodeObjects(nullptr), QList<Device::Node *>());
}
