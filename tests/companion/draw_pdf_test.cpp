// What readers of other hands see in the PDF files of all drawings and examples.
#include "companion/draw_run.h"
#include "support/corpus.h"

#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QXmlStreamReader>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr char linked[] = R"dot(digraph { graph [layout="gftree"];
    a [label="Top", url="https://a.example/top"];
    b [label="Office", url="https://a.example/top"]; a -> b; })dot";

bool isInstalled(const QString &program)
{
    return !QStandardPaths::findExecutable(program).isEmpty();
}

// The texts of an SVG, which are drawn in the same way.
QStringList textsOf(const QByteArray &svg)
{
    QStringList texts;
    QXmlStreamReader reader(svg);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == u"text"_s)
            texts += reader.readElementText(QXmlStreamReader::IncludeChildElements);
    }
    EXPECT_FALSE(reader.hasError());
    return texts;
}

QString withoutBlanks(QString text)
{
    static const QRegularExpression blanks(u"\\s+"_s);
    return text.remove(blanks);
}

QImage onWhite(const QImage &image)
{
    QImage result(image.size(), QImage::Format_RGB32);
    result.fill(Qt::white);
    QPainter(&result).drawImage(QPoint(0, 0), image);
    return result;
}

// The largest difference between the mean colours of cells of 10 by 10 pixels.
double difference(const QImage &a, const QImage &b)
{
    constexpr int side = 10;
    double most = 0;
    for (int top = 0; top + side <= a.height(); top += side) {
        for (int left = 0; left + side <= a.width(); left += side) {
            std::array<double, 3> sums{};
            for (int i = 0; i < side * side; ++i) {
                const QRgb one = a.pixel(left + i % side, top + i / side);
                const QRgb other = b.pixel(left + i % side, top + i / side);
                sums[0] += qRed(one) - qRed(other);
                sums[1] += qGreen(one) - qGreen(other);
                sums[2] += qBlue(one) - qBlue(other);
            }
            for (const double sum : sums)
                most = std::max(most, std::fabs(sum) / (side * side));
        }
    }
    return most;
}

class DrawPdfTest : public DrawTest, public testing::WithParamInterface<CorpusInput>
{
protected:
    QByteArray outputOf(const QString &program, const QStringList &arguments) const
    {
        const ProgramRun run = this->run({.arguments = arguments, .command = program});
        EXPECT_EQ(run.status, 0) << program.toStdString() << ": " << run.errors.toStdString();
        EXPECT_EQ(run.errors, "") << program.toStdString();
        return run.output;
    }

    void drawAll() const
    {
        const ProgramRun run = drawMany(
            {u"-K"_s, GetParam().engine(), u"-T"_s, u"pdf,png,svg"_s, u"-j"_s, u"1"_s, u"a.dot"_s});
        ASSERT_EQ(run.status, 0) << run.errors.toStdString();
    }

    void SetUp() override
    {
        DrawTest::SetUp();
        writeFile(u"a.dot"_s, GetParam().text());
        drawAll();
    }
};

} // namespace

TEST_P(DrawPdfTest, has_no_fault)
{
    if (!isInstalled(u"qpdf"_s))
        GTEST_SKIP() << "qpdf is not installed";
    const QByteArray said = outputOf(u"qpdf"_s, {u"--check"_s, u"a.pdf"_s});
    EXPECT_TRUE(said.contains("No syntax or stream encoding errors found")) << said.toStdString();
}

TEST_P(DrawPdfTest, holds_every_label_as_text)
{
    if (!isInstalled(u"pdftotext"_s))
        GTEST_SKIP() << "pdftotext is not installed";
    const QString found = withoutBlanks(QString::fromUtf8(
        outputOf(u"pdftotext"_s, {u"-raw"_s, u"-enc"_s, u"UTF-8"_s, u"a.pdf"_s, u"-"_s})));
    const QStringList texts = textsOf(fileContent(u"a.svg"_s));
    EXPECT_FALSE(texts.isEmpty());
    for (const QString &text : texts)
        EXPECT_TRUE(found.contains(withoutBlanks(text))) << text.toStdString();
}

TEST_P(DrawPdfTest, embeds_every_font)
{
    if (!isInstalled(u"pdffonts"_s))
        GTEST_SKIP() << "pdffonts is not installed";
    QByteArrayList lines = outputOf(u"pdffonts"_s, {u"a.pdf"_s}).trimmed().split('\n');
    ASSERT_GE(lines.size(), 3);
    for (const QByteArray &line : lines.sliced(2))
        EXPECT_TRUE(line.contains(" yes ")) << line.toStdString();
}

TEST_P(DrawPdfTest, looks_like_the_png)
{
    if (!isInstalled(u"pdftoppm"_s))
        GTEST_SKIP() << "pdftoppm is not installed";
    outputOf(u"pdftoppm"_s, {u"-r"_s, u"72"_s, u"-png"_s, u"-singlefile"_s, u"a.pdf"_s, u"seen"_s});
    const QImage seen(path(u"seen.png"_s));
    const QImage png = onWhite(QImage(path(u"a.png"_s)));
    if (qEnvironmentVariableIsSet("ORR_KEEP_PICTURES")) {
        const QString start = qEnvironmentVariable("ORR_KEEP_PICTURES") + u'/' + GetParam().engine()
            + u'-' + GetParam().name();
        seen.save(start + u".pdf.png"_s);
        png.save(start + u".png"_s);
    }
    ASSERT_EQ(seen.size(), png.size());
    EXPECT_LT(difference(onWhite(seen), png), 40);
}

INSTANTIATE_TEST_SUITE_P(All, DrawPdfTest, testing::ValuesIn(corpusInputs()), nameOfInput);

TEST_F(DrawTest, pdf_links_are_seen_by_another_reader)
{
    if (!isInstalled(u"pdftohtml"_s))
        GTEST_SKIP() << "pdftohtml is not installed";
    writeFile(u"r.dot"_s, linked);
    ASSERT_EQ(drawMany({u"-T"_s, u"pdf"_s, u"r.dot"_s}).status, 0);
    const ProgramRun seen = run({.arguments = {u"-stdout"_s, u"-i"_s, u"-noframes"_s, u"r.pdf"_s},
                                 .command = u"pdftohtml"_s});
    EXPECT_EQ(seen.output.count("<a href=\"https://a.example/top\">"), 2)
        << seen.output.toStdString();
}

// An edge that goes straight on names a point of its line twice.
TEST_F(DrawTest, pdf_of_a_line_with_a_point_twice_has_no_fault)
{
    QByteArray tree = "digraph { graph [layout=\"gftree\"";
    for (int i = 1; i <= 30; ++i) {
        const QByteArray node = "n" + QByteArray::number(i);
        tree += (i == 1 ? "]; " : "n" + QByteArray::number(i / 2) + " -> " + node + "; ") + node
            + " [label=\"" + node + "\"]; ";
    }
    writeFile(u"tree.dot"_s, tree + '}');
    writeFile(u"row.dot"_s,
              "digraph { graph [layout=\"gftree\", rankdir=\"LR\"]; n1 [label=\"n1\"]; "
              "n2 [label=\"n2\"]; n3 [label=\"n3\"]; n1 -> n2; n2 -> n3; }");
    const ProgramRun drawn = drawMany({u"-T"_s, u"pdf,svg"_s, u"tree.dot"_s, u"row.dot"_s});
    ASSERT_EQ(drawn.status, 0) << drawn.errors.toStdString();
    for (const QString &name : {u"tree"_s, u"row"_s}) {
        static const QRegularExpression twice(u"points=\"[^\"]*?(\\d+,\\d+) \\1[ \"]"_s);
        ASSERT_TRUE(QString::fromUtf8(fileContent(name + u".svg"_s)).contains(twice));
        for (const QStringList &reader :
             {QStringList{u"pdftotext"_s, name + u".pdf"_s, u"-"_s},
              QStringList{u"pdftoppm"_s, u"-r"_s, u"72"_s, u"-png"_s, name + u".pdf"_s, name}}) {
            if (!isInstalled(reader.first()))
                GTEST_SKIP() << reader.first().toStdString() << " is not installed";
            const ProgramRun seen = run({.arguments = reader.sliced(1), .command = reader.first()});
            EXPECT_EQ(seen.status, 0);
            EXPECT_EQ(seen.errors, "") << reader.join(u' ').toStdString();
        }
    }
}
