// The PDF device: the file, its page, its texts and its links.
#include "output/pdf/pdf_device.h"

#include "output/reference_drawing.h"
#include "support/golden.h"

#include <QRegularExpression>
#include <QTemporaryDir>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// The file that `draw(device)` gives on a page of the size.
template <typename Draw>
QByteArray pdfOf(QSize page, Draw draw, const DrawingExtras &extras = {},
                 const DotGraph *graph = nullptr)
{
    QByteArray bytes;
    Pdf device(&bytes, extras, graph);
    device.begin(page.width(), page.height());
    draw(device);
    EXPECT_EQ(device.end(), QString());
    return bytes;
}

QStringList matchesIn(const QByteArray &pdf, const QString &pattern)
{
    QStringList all;
    auto matches = QRegularExpression(pattern).globalMatch(QString::fromLatin1(pdf));
    while (matches.hasNext())
        all += matches.next().captured(1);
    return all;
}

// The addresses of the links, in the order of the file.
QByteArrayList addressesIn(const QByteArray &pdf)
{
    QByteArrayList addresses;
    for (const QString &digits : matchesIn(pdf, u"/URI <([0-9a-f]*)>"_s))
        addresses += QByteArray::fromHex(digits.toLatin1());
    return addresses;
}

// The operators of the pages, a line each.
QByteArrayList linesOfPages(const QByteArray &pdf)
{
    QByteArrayList lines;
    qsizetype start = 0;
    while ((start = pdf.indexOf("stream\n", start)) >= 0) {
        start += 7;
        const qsizetype end = pdf.indexOf("endstream", start);
        // The toolkit wants the size, or a guess, in front.
        lines +=
            qUncompress(QByteArray(4, '\0') + pdf.sliced(start, end - start)).trimmed().split('\n');
        start = end + 9;
    }
    return lines;
}

// How many paths are painted, or closed, that nothing has begun.
int pathsWithoutPoint(const QByteArray &pdf)
{
    int count = 0;
    bool hasPoint = false;
    for (const QByteArray &line : linesOfPages(pdf)) {
        const QByteArray last = line.trimmed().split(' ').last();
        if (last == "m" || last == "re")
            hasPoint = true;
        else if (QByteArrayList{"h", "f", "f*", "S", "B", "B*", "s", "b", "b*"}.contains(last))
            count += !hasPoint;
        if (QByteArrayList{"f", "f*", "S", "B", "B*", "n"}.contains(last))
            hasPoint = false;
    }
    return count;
}

const auto emptyPage = [](Pdf &) {};

} // namespace

TEST(PdfDevice, has_a_page_of_the_size_of_the_drawing)
{
    const QByteArray pdf = pdfOf({421, 297}, emptyPage);
    EXPECT_TRUE(pdf.startsWith("%PDF-1.6\n"));
    EXPECT_TRUE(pdf.endsWith("%%EOF\n"));
    EXPECT_EQ(matchesIn(pdf, u"/MediaBox \\[0 0 ([0-9. ]*)\\]"_s),
              QStringList(u"421.000000 297.000000"_s));
    EXPECT_EQ(matchesIn(pdf, u"/UserUnit ([0-9.]*)"_s), QStringList(u"1.000000"_s));
    // Near enough to A4 to be taken for it.
    EXPECT_TRUE(pdfOf({594, 841}, emptyPage).contains("[0 0 594.000000 841.000000]"));
}

TEST(PdfDevice, makes_the_unit_of_a_large_page_larger)
{
    EXPECT_TRUE(pdfOf({14400, 10}, emptyPage).contains("/UserUnit 1.000000\n"));
    const QByteArray wide = pdfOf({21600, 30}, emptyPage);
    EXPECT_TRUE(wide.contains("/UserUnit 1.500000\n"));
    EXPECT_TRUE(wide.contains("[0 0 14400.000000 20.000000]"));
    const QByteArray huge = pdfOf({1000000000, 1000000000}, emptyPage);
    EXPECT_TRUE(huge.contains("[0 0 14400.000000 14400.000000]")) << huge.toStdString();
}

TEST(PdfDevice, is_the_same_on_every_run)
{
    const auto draw = [](Pdf &device) { drawReference(device); };
    const QByteArray one = pdfOf({420, 330}, draw);
    EXPECT_EQ(pdfOf({420, 330}, draw), one);
    EXPECT_FALSE(one.contains("Date"));
}

TEST(PdfDevice, has_no_file_without_a_page)
{
    for (const QSize page : {QSize(0, 10), QSize(10, 0), QSize(-1, 10)}) {
        QByteArray bytes = "old";
        Pdf device(&bytes);
        device.begin(page.width(), page.height());
        device.drawRect({0, 0}, {5, 5}, 0, nullptr, device.color(u"red"_s));
        device.drawRichText({0, 0}, device.text(u"<b>x</b>"_s, nullptr, nullptr));
        EXPECT_EQ(device.end(), u"Could not save drawing to file\n"_s);
        EXPECT_EQ(bytes, "old");
    }
    QByteArray bytes;
    EXPECT_EQ(Pdf(&bytes).end(), u"Could not save drawing to file\n"_s);
}

TEST(PdfDevice, writes_a_file_whole_or_not_at_all)
{
    const QTemporaryDir folder;
    Pdf missing(folder.filePath(u"no/a.pdf"_s));
    missing.begin(10, 10);
    EXPECT_EQ(missing.end(), u"Could not save drawing to file\n"_s);
    {
        Pdf abandoned(folder.filePath(u"a.pdf"_s));
        abandoned.begin(10, 10);
        drawReference(abandoned);
    }
    EXPECT_FALSE(QFile::exists(folder.filePath(u"a.pdf"_s)));
    Pdf good(folder.filePath(u"a.pdf"_s));
    good.begin(10, 10);
    EXPECT_EQ(good.end(), QString());
    EXPECT_EQ(readTestFile(folder.filePath(u"a.pdf"_s)), pdfOf({10, 10}, emptyPage));
}

TEST(PdfDevice, embeds_its_fonts)
{
    const QByteArray pdf = pdfOf({100, 50}, [](Pdf &device) {
        device.drawText({10, 10}, device.text(u"Office"_s, nullptr, nullptr));
    });
    EXPECT_EQ(pdf.count("/FontFile2"), 1);
    EXPECT_EQ(pdf.count("/ToUnicode"), 1);
    EXPECT_FALSE(pdfOf({100, 50}, emptyPage).contains("/FontFile2"));
}

TEST(PdfDevice, takes_its_title_from_the_label_of_the_root)
{
    DotGraph graph;
    graph.setGraphAttribute(graph.root(), u"label"_s, u"A (b)\\nc >> endobj \u00e4"_s);
    const QByteArray pdf = pdfOf({10, 10}, emptyPage, {}, &graph);
    const QStringList titles = matchesIn(pdf, u"/Title <([0-9a-f]*)>"_s);
    ASSERT_EQ(titles.size(), 1);
    EXPECT_EQ(
        titles.first(),
        u"feff00410020002800620029002000630020003e003e00200065006e0064006f0062006a002000e4"_s);
    EXPECT_FALSE(pdfOf({10, 10}, emptyPage).contains("/Title"));
}

TEST(PdfDevice, links_what_an_object_draws)
{
    DotGraph graph;
    DotNode *node = graph.createNode(graph.root(), {}, u"n"_s);
    graph.setNodeAttribute(node, u"url"_s, u"https://a.example/(1)\\"_s);
    const QByteArray pdf = pdfOf({100, 50}, [&](Pdf &device) {
        device.beginNode(node);
        device.drawRect({10, 10}, {29, 19}, 0, device.pen(device.color({}), 0, 1), nullptr);
        device.endNode();
        device.drawRect({0, 0}, {90, 40}, 0, device.pen(device.color({}), 0, 1), nullptr);
    });
    EXPECT_EQ(addressesIn(pdf), QByteArrayList{"https://a.example/(1)%5C"});
    // 10 to 30 from the left, 10 to 20 from the top, and a point around it.
    EXPECT_EQ(matchesIn(pdf, u"/Rect \\[([^\\]]*)\\]"_s), QStringList(u"9.00 29.00 31.00 41.00"_s));
    EXPECT_EQ(pdf.count("/Annots "), 1);
}

TEST(PdfDevice, links_lie_on_the_page_in_its_units)
{
    DotGraph graph;
    DotNode *node = graph.createNode(graph.root(), {}, u"n"_s);
    graph.setNodeAttribute(node, u"url"_s, u"a"_s);
    const QByteArray pdf = pdfOf({28800, 200}, [&](Pdf &device) {
        device.beginNode(node);
        device.drawRect({-50, 101}, {100, 500}, 0, device.pen(device.color({}), 0, 1), nullptr);
        device.endNode();
        device.beginNode(node);
        device.drawRect({-50, -50}, {-10, -10}, 0, device.pen(device.color({}), 0, 1), nullptr);
        device.endNode();
    });
    EXPECT_EQ(matchesIn(pdf, u"/Rect \\[([^\\]]*)\\]"_s), QStringList(u"0.00 0.00 51.00 50.00"_s));
}

TEST(PdfDevice, has_no_more_links_than_readers_take)
{
    DotGraph graph;
    DotNode *node = graph.createNode(graph.root(), {}, u"n"_s);
    graph.setNodeAttribute(node, u"url"_s, u"a"_s);
    const QByteArray pdf = pdfOf({100, 100}, [&](Pdf &device) {
        for (int i = 0; i < 10'001; ++i) {
            device.beginNode(node);
            device.drawRect({10, 10}, {20, 20}, 0, nullptr, nullptr);
            device.endNode();
        }
    });
    EXPECT_EQ(pdf.count("/URI <"), 10'000);
}

TEST(PdfDevice, makes_no_links_of_rich_text)
{
    for (const QString &address : {u"javascript:alert(1)"_s, u"https://a.example"_s}) {
        const QString html = u"<b>x</b> <a href=\"%1\">label</a> <a name=\"n\">y</a>"
                             "<table><tr><td><a href=\"%1\">z</a></td></tr></table>"_s.arg(address);
        const QByteArray pdf = pdfOf({200, 100}, [&](Pdf &device) {
            device.drawRichText({10, 10}, device.text(html, nullptr, device.color(u"red"_s)));
        });
        EXPECT_TRUE(pdf.contains("/FontFile2"));
        EXPECT_FALSE(pdf.contains("/URI"));
        EXPECT_FALSE(pdf.contains("/Annot\n"));
        EXPECT_FALSE(pdf.contains("/Dest"));
    }
}

TEST(PdfDevice, paints_a_background_first)
{
    const QByteArray plain = pdfOf({100, 50}, emptyPage);
    const QByteArray red = pdfOf({100, 50}, emptyPage, {.background = u"red"_s});
    EXPECT_NE(red, plain);
    EXPECT_NE(pdfOf({100, 50}, emptyPage, {.background = u"#ff000080"_s}), red);
}

TEST(PdfDevice, ends_no_path_that_has_not_begun)
{
    using Pen = Device::Pen;
    const QPoint p(50, 20);
    const auto drawPoints = [&p](Pdf &device, Pen *pen) {
        const QList<QList<QPoint>> lists{{}, {p}, {p, p}, {p, p, p, p}, {p, p, {60, 30}, {60, 30}}};
        for (const QList<QPoint> &points : lists) {
            device.drawPolyline(points, pen);
            device.drawPolygon(points, pen, nullptr);
            device.drawPolygon(points, pen, device.color(u"red"_s));
            device.drawBezier(points, pen, nullptr);
            Device::Path *const path = device.createPath();
            for (qsizetype i = 0; i < points.size(); ++i)
                i == 0 ? path->moveTo(points.at(i)) : path->lineTo(points.at(i));
            device.drawPath(path, pen, nullptr);
        }
        device.drawEllipse(p, 0, 0, pen, nullptr);
        device.drawRect(p, p - QPoint(1, 1), 0, pen, nullptr);
        device.drawRect(p, p - QPoint(1, 1), 4, pen, nullptr);
    };
    for (const QSize page : {QSize(100, 50), QSize(21600, 30)}) {
        for (const int style : {Pen::Solid, Pen::Dashed, Pen::Dotted}) {
            for (const int width : {0, 1, 5}) {
                const QByteArray pdf = pdfOf(page, [&](Pdf &device) {
                    drawPoints(device, device.pen(device.color(u"black"_s), style, width));
                });
                EXPECT_TRUE(linesOfPages(pdf).contains("50 20 m"));
                EXPECT_EQ(pathsWithoutPoint(pdf), 0) << "style " << style << ", width " << width;
            }
        }
    }
}

TEST(PdfDevice, leaves_out_lines_without_an_end)
{
    const auto linesWith = [](const QList<QPoint> &points, int style) {
        return pdfOf({100, 50}, [&](Pdf &device) {
            device.drawPolyline(points, device.pen(device.color(u"black"_s), style, 5));
        });
    };
    EXPECT_EQ(linesWith({{9, 9}, {9, 9}, {50, 9}, {50, 9}, {9, 9}}, Device::Pen::Solid),
              linesWith({{9, 9}, {50, 9}, {9, 9}}, Device::Pen::Solid));
    // A round cap is a dot.
    EXPECT_NE(linesWith({{9, 9}, {9, 9}}, Device::Pen::Dotted),
              linesWith({{9, 9}}, Device::Pen::Dotted));
}
