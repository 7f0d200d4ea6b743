// The texts of finished SVG drawings as a second renderer draws them: as wide as the boxes that
// layout made for them.
#include "finished_drawing.h"

#include "device/text_image.h"
#include "support/corpus.h"

#include <QFile>
#include <QHash>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <algorithm>

using namespace ORR;
using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

constexpr int zoom = 4; // pixels a unit
constexpr int rowsASheet = 40;
constexpr int room = 4; // around a row, in units

// A line of text with the attributes that it has in the drawing.
struct SvgText
{
    QString text;
    QString family;
    int size = 0;
    int style = 0; // bits of Device::Font::Style
    int boxWidth = 0; // as layout has it

    friend bool operator==(const SvgText &, const SvgText &) = default;
};

// The texts of a drawing with the widths of the boxes that layout made for them, as its xdot form
// tells: "F size n -family T x y 0 width n -text", with lengths in bytes.
QHash<QString, int> boxWidths(const QByteArray &xdot)
{
    static const QRegularExpression op(
        u"F (\\d+) \\d+ -([^\"]*?)(?: t \\d+)? T -?\\d+ -?\\d+ 0 (\\d+) (\\d+) -"_s);
    const QString ops = QString::fromUtf8(xdot).replace(u"\\\""_s, u"\""_s);
    QHash<QString, int> widths;
    for (const QRegularExpressionMatch &match : op.globalMatch(ops)) {
        const QByteArray rest = ops.mid(match.capturedEnd(), match.captured(4).toInt()).toUtf8();
        const QString text = QString::fromUtf8(rest.first(match.captured(4).toInt()));
        widths.insert(match.captured(1) + u' ' + text, match.captured(3).toInt());
    }
    return widths;
}

// Adds the lines of the drawing that are not there yet.
void addTexts(const QByteArray &svg, const QHash<QString, int> &boxes, QList<SvgText> *texts)
{
    SvgText current;
    QXmlStreamReader xml(svg);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == "text"_L1) {
            const auto attributes = xml.attributes();
            current.family = attributes.value("font-family"_L1).toString();
            current.size = attributes.value("font-size"_L1).toInt();
            current.style = (attributes.hasAttribute("font-weight"_L1) ? Device::Font::Bold : 0)
                | (attributes.hasAttribute("font-style"_L1) ? Device::Font::Italic : 0);
        } else if (xml.isCharacters() && !xml.isWhitespace()) {
            current.text = xml.text().toString();
            current.boxWidth = boxes.value(QString::number(current.size) + u' ' + current.text);
            EXPECT_GT(current.boxWidth, 0) << "no box for " << current.text.toStdString();
            if (!texts->contains(current))
                texts->append(current);
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
}

QByteArray rowElement(const SvgText &text, const QString &content, int baseline)
{
    return u" <text x=\"%1\" y=\"%2\" font-family=\"%3\" font-size=\"%4\"%5%6"
           " xml:space=\"preserve\">%7</text>\n"_s.arg(room)
               .arg(baseline)
               .arg(text.family.toHtmlEscaped())
               .arg(text.size)
               .arg(text.style & Device::Font::Bold ? u" font-weight=\"bold\""_s : QString())
               .arg(text.style & Device::Font::Italic ? u" font-style=\"italic\""_s : QString())
               .arg(content.toHtmlEscaped())
               .toUtf8();
}

// What rsvg-convert paints of an SVG text, with the pinned fonts.
QImage renderedElsewhere(const QByteArray &svg)
{
    const QTemporaryDir folder;
    const QString input = folder.filePath(u"sheet.svg"_s);
    const QString output = folder.filePath(u"sheet.png"_s);
    QFile file(input);
    if (!file.open(QIODevice::WriteOnly) || file.write(svg) != svg.size())
        return {};
    file.close();
    QProcess renderer;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"FONTCONFIG_FILE"_s, QStringLiteral(ORR_TEST_FONTS));
    renderer.setProcessEnvironment(environment);
    renderer.start(
        u"rsvg-convert"_s,
        {u"--zoom"_s, QString::number(zoom), u"-b"_s, u"white"_s, u"-o"_s, output, input});
    EXPECT_TRUE(renderer.waitForFinished() && renderer.exitCode() == 0)
        << renderer.readAllStandardError().toStdString();
    return QImage(output);
}

bool hasInk(const QImage &image, int x, int top, int bottom)
{
    for (int y = top; y < bottom; ++y) {
        if (qGray(image.pixel(x, y)) < 128)
            return true;
    }
    return false;
}

// From the first to the last column with ink, in units.
double inkWidth(const QImage &image, int top, int bottom)
{
    int left = 0;
    while (left < image.width() && !hasInk(image, left, top, bottom))
        ++left;
    int right = image.width() - 1;
    while (right > left && !hasInk(image, right, top, bottom))
        --right;
    return double(right - left) / zoom;
}

// How wide each of the texts is drawn by the second renderer. The ink of a text is not its width,
// so each is drawn between two bars, and the bars alone in the row below.
QList<double> drawnWidths(const QList<SvgText> &texts)
{
    int pitch = 0;
    int widest = 0;
    for (const SvgText &text : texts) {
        pitch = std::max(pitch, 2 * text.size);
        widest = std::max(widest, 2 * text.boxWidth + 2 * text.size);
    }
    const int height = 2 * pitch * int(texts.size());
    QByteArray svg = u"<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"%1\""
                     " height=\"%2\">\n"_s.arg(widest)
                         .arg(height)
                         .toUtf8();
    for (int i = 0; i < texts.size(); ++i) {
        const SvgText &text = texts.at(i);
        svg += rowElement(text, u'I' + text.text + u'I', 2 * i * pitch + text.size + room);
        svg += rowElement(text, u"II"_s, (2 * i + 1) * pitch + text.size + room);
    }
    const QImage sheet = renderedElsewhere(svg + "</svg>\n");
    QList<double> widths;
    const int step = pitch * zoom;
    for (int top = 0; top + 2 * step <= sheet.height(); top += 2 * step)
        widths += inkWidth(sheet, top, top + step) - inkWidth(sheet, top + step, top + 2 * step);
    return widths;
}

QList<double> widthRatios(const QList<SvgText> &texts)
{
    QList<double> ratios;
    for (qsizetype first = 0; first < texts.size(); first += rowsASheet) {
        const QList<SvgText> rows = texts.mid(first, rowsASheet);
        const QList<double> widths = drawnWidths(rows);
        EXPECT_EQ(widths.size(), rows.size());
        for (qsizetype i = 0; i < std::min(widths.size(), rows.size()); ++i)
            ratios += widths.at(i) / rows.at(i).boxWidth;
    }
    std::sort(ratios.begin(), ratios.end());
    return ratios;
}

class DrawnTextWidths : public testing::TestWithParam<Drawing::LayoutIndex>
{
};

} // namespace

TEST_P(DrawnTextWidths, of_the_examples_are_those_of_their_boxes_in_a_second_renderer)
{
    if (QStandardPaths::findExecutable(u"rsvg-convert"_s).isEmpty())
        FAIL() << "rsvg-convert is not installed";
    QList<SvgText> texts;
    for (const CorpusInput &input : inputsOf(GetParam(), exampleInputs())) {
        const FinishedDrawing drawing = draw(input.file, input.engine(), u"svg"_s);
        ASSERT_EQ(drawing.status, 0) << input.file.toStdString();
        const FinishedDrawing boxes = draw(input.file, input.engine(), u"xdot1.2"_s);
        addTexts(drawing.bytes, boxWidths(boxes.bytes), &texts);
    }
    ASSERT_FALSE(texts.isEmpty());
    const QList<double> ratios = widthRatios(texts);
    ASSERT_FALSE(ratios.isEmpty());
    const double median = ratios.at(ratios.size() / 2);
    EXPECT_GT(median, 0.95) << texts.size() << " texts";
    EXPECT_LT(median, 1.05) << texts.size() << " texts";
    EXPECT_GT(ratios.first(), 0.8) << "the narrowest of all";
    EXPECT_LT(ratios.last(), 1.2) << "the widest of all";
}

INSTANTIATE_TEST_SUITE_P(All, DrawnTextWidths, testing::ValuesIn(allLayouts()), nameOfLayout);
