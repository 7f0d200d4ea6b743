// Finished drawings: what the real program makes of a small input of each engine, in every format,
// beside the drawing that was checked and looked at when it was accepted.
#include "finished_drawing.h"

#include "support/corpus.h"
#include "support/golden.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QTemporaryDir>
#include <QXmlStreamReader>

using namespace ORR::Drawing;
using namespace Qt::StringLiterals;

namespace {

QByteArray succeeded(const FinishedDrawing &drawing)
{
    EXPECT_EQ(drawing.status, 0);
    EXPECT_EQ(drawing.errors, "");
    return drawing.bytes;
}

// The finished drawing in a format; drawn anew for every call.
QByteArray drawn(const CorpusInput &input, Format format)
{
    return succeeded(draw(input.file, input.engine(), formatRow(format).name));
}

// The golden xdot text, replayed.
QByteArray replayed(const CorpusInput &input, Format format)
{
    const QString xdot = input.besideIt(goldenSuffix(Format::XDot));
    return succeeded(draw(xdot, QString(), formatRow(format).name));
}

testing::AssertionResult isWellFormed(const QByteArray &bytes)
{
    QXmlStreamReader xml(bytes);
    while (!xml.atEnd())
        xml.readNext();
    if (xml.hasError())
        return testing::AssertionFailure() << xml.errorString().toStdString();
    return testing::AssertionSuccess();
}

// The golden is the PNG on white: what compression makes of it may differ a little everywhere.
void expectJpgOfSizeAndWhite(const QByteArray &bytes, const QString &golden)
{
    const QImage jpg = QImage::fromData(bytes, "JPG");
    ASSERT_FALSE(jpg.isNull());
    EXPECT_EQ(jpg.size(), QImage(golden).size());
    EXPECT_FALSE(jpg.hasAlphaChannel());
    EXPECT_GT(qGray(jpg.pixel(0, 0)), 240) << "the corner of the page is white";
}

// An input and one format of the table.
using DrawnFormat = std::tuple<CorpusInput, Format>;

class Drawings : public testing::TestWithParam<DrawnFormat>
{
};

std::string nameOf(const testing::TestParamInfo<DrawnFormat> &test)
{
    const auto &[input, format] = test.param;
    // No name of a test has the dot of xdot1.2 in it.
    const QString suffix = QString(formatRow(format).name).section(u'1', 0, 0);
    return (input.engine() + u'_' + input.name() + u'_' + suffix).toStdString();
}

class ReplayedDrawings : public testing::TestWithParam<CorpusInput>
{
};

} // namespace

TEST_P(Drawings, are_as_they_were_accepted)
{
    const auto &[input, format] = GetParam();
    const QString golden = input.besideIt(goldenSuffix(format));
    const QByteArray bytes = drawn(input, format);
    switch (format) {
    case Format::XDot:
        EXPECT_TRUE(matchesGolden(bytes, golden));
        return;
    case Format::Jpg:
        return expectJpgOfSizeAndWhite(bytes, golden);
    case Format::Png:
        EXPECT_TRUE(matchesPicture(bytes, golden));
        return;
    case Format::Svg:
        EXPECT_TRUE(matchesGolden(bytes, golden));
        EXPECT_TRUE(isWellFormed(bytes));
        return;
    case Format::Vsdx:
        EXPECT_TRUE(matchesGoldenNumbers(packagePart(bytes, u"visio/pages/page1.xml"_s), golden));
        return;
    case Format::Vdx:
        EXPECT_TRUE(matchesGoldenNumbers(bytes, golden));
        return;
    case Format::Pdf:
        break;
    }
    FAIL() << "nothing judges the format";
}

TEST_P(Drawings, have_the_same_bytes_on_every_run)
{
    const auto &[input, format] = GetParam();
    EXPECT_EQ(drawn(input, format), drawn(input, format));
}

TEST_P(ReplayedDrawings, are_as_they_were_accepted)
{
    const CorpusInput &input = GetParam();
    EXPECT_TRUE(matchesGolden(replayed(input, Format::Svg), input.besideIt(u"replayed.svg"_s)));
    EXPECT_TRUE(matchesPicture(replayed(input, Format::Png), input.besideIt(u"replayed.png"_s)));
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
// page that shows it may be dark. Those of a browser and of the
// companion are looked at by other tests.
TEST(Pictures, of_the_documents_are_what_the_examples_draw)
{
    const QDir project(QStringLiteral(ORR_TEST_FOLDER "/../.."));
    const QDir pictures(project.filePath(u"docs/pictures"_s));
    const QStringList files = pictures.entryList({u"*.png"_s}, QDir::Files, QDir::Name);
    EXPECT_FALSE(files.isEmpty());
    for (const QString &file : files) {
        const QString engine = file.section(u'-', 0, 0);
        if (QStringList{u"page"_s, u"serve"_s, u"import"_s, u"new"_s, u"sample"_s, u"tutorial"_s}
                .contains(engine))
            continue;
        const QString example = QFileInfo(file).completeBaseName().section(u'-', 1);
        const QString input = u"examples/%1/%2.dot"_s.arg(engine, example);
        const FinishedDrawing drawing = draw(project.filePath(input), engine, u"png"_s);
        EXPECT_EQ(drawing.status, 0) << input.toStdString();
        EXPECT_TRUE(matchesPicture(onWhite(drawing.bytes), pictures.filePath(file)));
    }
}

INSTANTIATE_TEST_SUITE_P(All, Drawings,
                         testing::Combine(testing::ValuesIn(drawingInputs()),
                                          testing::ValuesIn(allFormats())),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(All, ReplayedDrawings, testing::ValuesIn(drawingInputs()), nameOfInput);
