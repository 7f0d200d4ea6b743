// Finished drawings: what the real program makes of a small input of each engine, in every format,
// beside the drawing that was checked and looked at when it was accepted.
#include "finished_drawing.h"

#include "support/golden.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QTemporaryDir>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

// tests/drawings/<engine>/<name>.dot, with its goldens beside it.
struct Drawing
{
    QString engine;
    QString name;

    QString file(const QString &suffix) const
    {
        return u"%1/%2/%3.%4"_s.arg(QStringLiteral(ORR_TEST_FOLDER), engine, name, suffix);
    }
};

std::vector<Drawing> allDrawings()
{
    std::vector<Drawing> drawings;
    const QDir root(QStringLiteral(ORR_TEST_FOLDER));
    for (const QString &engine : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QDir folder(root.filePath(engine));
        for (const QString &file : folder.entryList({u"*.dot"_s}, QDir::Files, QDir::Name))
            drawings.push_back({engine, QFileInfo(file).completeBaseName()});
    }
    return drawings;
}

class Drawings : public testing::TestWithParam<Drawing>
{
protected:
    // The finished drawing in a format; drawn anew for every call.
    static QByteArray drawn(const QString &format)
    {
        return succeeded(draw(GetParam().file(u"dot"_s), GetParam().engine, format));
    }
    // The golden xdot text, replayed.
    static QByteArray replayed(const QString &format)
    {
        return succeeded(draw(GetParam().file(u"xdot"_s), QString(), format));
    }

private:
    static QByteArray succeeded(const FinishedDrawing &drawing)
    {
        EXPECT_EQ(drawing.status, 0);
        EXPECT_EQ(drawing.errors, "");
        return drawing.bytes;
    }
};

std::string nameOf(const testing::TestParamInfo<Drawing> &drawing)
{
    return (drawing.param.engine + u'_' + drawing.param.name).toStdString();
}

} // namespace

TEST_P(Drawings, svg)
{
    const QByteArray svg = drawn(u"svg"_s);
    EXPECT_TRUE(matchesGolden(svg, GetParam().file(u"svg"_s)));
    QXmlStreamReader xml(svg);
    while (!xml.atEnd())
        xml.readNext();
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
}

TEST_P(Drawings, png)
{
    EXPECT_TRUE(matchesPicture(drawn(u"png"_s), GetParam().file(u"png"_s)));
}

// The golden is the PNG on white: what compression makes of it may differ a little everywhere.
TEST_P(Drawings, jpg_has_the_size_of_the_png_and_no_transparency)
{
    const QImage jpg = QImage::fromData(drawn(u"jpg"_s), "JPG");
    const QImage png(GetParam().file(u"png"_s));
    ASSERT_FALSE(jpg.isNull());
    EXPECT_EQ(jpg.size(), png.size());
    EXPECT_FALSE(jpg.hasAlphaChannel());
    EXPECT_GT(qGray(jpg.pixel(0, 0)), 240) << "the corner of the page is white";
}

TEST_P(Drawings, xdot)
{
    EXPECT_TRUE(matchesGolden(drawn(u"xdot1.2"_s), GetParam().file(u"xdot"_s)));
}

TEST_P(Drawings, xdot_replayed_to_svg)
{
    EXPECT_TRUE(matchesGolden(replayed(u"svg"_s), GetParam().file(u"replayed.svg"_s)));
}

TEST_P(Drawings, xdot_replayed_to_png)
{
    EXPECT_TRUE(matchesPicture(replayed(u"png"_s), GetParam().file(u"replayed.png"_s)));
}

TEST_P(Drawings, vsdx)
{
    const QByteArray page = packagePart(drawn(u"vsdx"_s), u"visio/pages/page1.xml"_s);
    EXPECT_TRUE(matchesGoldenNumbers(page, GetParam().file(u"vsdx.page1.xml"_s)));
}

TEST_P(Drawings, vdx)
{
    EXPECT_TRUE(matchesGoldenNumbers(drawn(u"vdx"_s), GetParam().file(u"vdx"_s)));
}

TEST_P(Drawings, the_same_bytes_on_every_run)
{
    for (const QString &format : {u"svg"_s, u"png"_s, u"jpg"_s, u"xdot1.2"_s, u"vsdx"_s, u"vdx"_s})
        EXPECT_EQ(drawn(format), drawn(format)) << format.toStdString();
}

// The tolerance of the comparison hides no true difference.
TEST(Pictures, differ_where_a_line_is_shifted_by_half_a_pixel)
{
    const QTemporaryDir folder;
    const auto picture = [](double shift) {
        QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QColor(0xEE, 0xEE, 0xEE));
        painter.drawLine(QPointF(5 + shift, 5), QPointF(30 + shift, 33));
        painter.end();
        QByteArray bytes;
        QBuffer buffer(&bytes);
        EXPECT_TRUE(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "PNG"));
        return bytes;
    };
    const QString golden = folder.filePath(u"line.png"_s);
    QFile file(golden);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(picture(0)) > 0);
    file.close();
    if (qEnvironmentVariableIsSet("ORR_UPDATE_GOLDENS"))
        GTEST_SKIP() << "nothing is compared";
    EXPECT_TRUE(matchesPicture(picture(0), golden));
    EXPECT_FALSE(matchesPicture(picture(0.5), golden));
}

// docs/pictures/<engine>-<example>.png is what examples/<engine>/<example>.dot draws, on white: a
// page that shows it may be dark.
TEST(Pictures, of_the_documents_are_what_the_examples_draw)
{
    const QDir project(QStringLiteral(ORR_TEST_FOLDER "/../.."));
    const QDir pictures(project.filePath(u"docs/pictures"_s));
    const QStringList files = pictures.entryList({u"*.png"_s}, QDir::Files, QDir::Name);
    EXPECT_GE(files.size(), 8) << "one an engine";
    for (const QString &file : files) {
        const QString engine = file.section(u'-', 0, 0);
        const QString example = QFileInfo(file).completeBaseName().section(u'-', 1);
        const QString input = u"examples/%1/%2.dot"_s.arg(engine, example);
        const FinishedDrawing drawing = draw(project.filePath(input), engine, u"png"_s);
        EXPECT_EQ(drawing.status, 0) << input.toStdString();
        EXPECT_TRUE(matchesPicture(onWhite(drawing.bytes), pictures.filePath(file)));
    }
}

INSTANTIATE_TEST_SUITE_P(All, Drawings, testing::ValuesIn(allDrawings()), nameOf);
